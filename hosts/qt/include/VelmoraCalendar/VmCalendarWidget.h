#pragma once

#include "VelmoraCalendar/VmDateWidget.h"

namespace velmora {

class VmCalendar;

/// The month calendar as a Qt widget.
class VELMORA_QT_API VmCalendarWidget : public VmDateWidget {
    Q_OBJECT
    Q_PROPERTY(Appearance appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
    Q_PROPERTY(QDate dateValue READ dateValue WRITE setDateValue NOTIFY dateValueChanged USER true)
    Q_PROPERTY(MonthYearSelStyle monthYearSelStyle READ monthYearSelStyle WRITE setMonthYearSelStyle
                   NOTIFY monthYearSelStyleChanged)

public:
    enum MonthYearSelStyle : int {
        MonthSelNone = 0,
        MonthSelArrows = 1,
        MonthSelCombo = 2,
        MonthSelScrollbar = 3,
    };
    Q_ENUM(MonthYearSelStyle)

    explicit VmCalendarWidget(QWidget* parent = nullptr);
    ~VmCalendarWidget() override;

    /// The calendar itself, for what Qt's types do not carry: system colours, days, saved state.
    /// Its class is in calendar/VmCalendar.h.
    VmCalendar& calendar() noexcept;
    const VmCalendar& calendar() const noexcept;

    /// The grid shows the month of this date.
    QDate shownDate() const;

    Appearance appearance() const;
    QDate dateValue() const;
    MonthYearSelStyle monthYearSelStyle() const;

    /// Cells with room below their numbers, and the size below which something is cut; both follow
    /// the fonts, the language, and what is shown.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setAppearance(Appearance value);
    void setDateValue(QDate value);
    void setMonthYearSelStyle(MonthYearSelStyle value);

    void setNoRepaintControl(bool value);
    void setAlwaysDateChanged(bool value);

Q_SIGNALS:
    // The property has been set.
    void appearanceChanged();
    void monthYearSelStyleChanged();

    /// `dateValue` is another date, whoever has changed it.
    void dateValueChanged(QDate newDate);

    // Events of the calendar, as those of the base class.
    void click();
    void dblClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class Host;

    Host& Own() const noexcept;
    void ChainChildren();

    bool m_painted = false;
};

}  // namespace velmora
