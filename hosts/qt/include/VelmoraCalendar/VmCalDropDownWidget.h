#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QDateTime>

namespace velmora {

class VmCalDropDown;

/// The date box as a Qt widget: a date as text, with a calendar that opens below it. What it has
/// of its own is described with `VmCalDropDown`.
class VELMORA_QT_API VmCalDropDownWidget : public VmDateWidget {
    Q_OBJECT
    Q_PROPERTY(QFont comboFont READ comboFont WRITE setComboFont RESET resetComboFont NOTIFY
                   comboFontChanged)
    /// The day of `dateValue`, which keeps its time of day when this is set: for item delegates and
    /// mappers.
    Q_PROPERTY(QDate date READ date WRITE setDate NOTIFY dateValueChanged
                   DESIGNABLE false STORED false USER true)
    Q_PROPERTY(QString dateFormat READ dateFormat WRITE setDateFormat NOTIFY dateFormatChanged)
    Q_PROPERTY(QDateTime dateValue READ dateValue WRITE setDateValue NOTIFY dateValueChanged)
    Q_PROPERTY(DropDownAlignment dropDownAlignment READ dropDownAlignment WRITE setDropDownAlignment
                   NOTIFY dropDownAlignmentChanged)
    Q_PROPERTY(Appearance dropDownAppearance READ dropDownAppearance WRITE setDropDownAppearance
                   NOTIFY dropDownAppearanceChanged)
    Q_PROPERTY(
        int dropDownHeight READ dropDownHeight WRITE setDropDownHeight NOTIFY dropDownHeightChanged)
    Q_PROPERTY(bool dropDownState READ dropDownState WRITE setDropDownState NOTIFY
                   dropDownStateChanged DESIGNABLE false STORED false)
    Q_PROPERTY(
        int dropDownWidth READ dropDownWidth WRITE setDropDownWidth NOTIFY dropDownWidthChanged)
    Q_PROPERTY(bool keepDropDownOnScreen READ keepDropDownOnScreen WRITE setKeepDropDownOnScreen
                   NOTIFY keepDropDownOnScreenChanged)
    Q_PROPERTY(MonthYearSelStyle monthYearSelStyle READ monthYearSelStyle WRITE setMonthYearSelStyle
                   NOTIFY monthYearSelStyleChanged)

public:
    enum DropDownAlignment : int { LeftJustified = 0, RightJustified = 1 };
    Q_ENUM(DropDownAlignment)
    enum MonthYearSelStyle : int { MonthSelNone = 0, MonthSelArrows = 1 };
    Q_ENUM(MonthYearSelStyle)

    explicit VmCalDropDownWidget(QWidget* parent = nullptr);
    ~VmCalDropDownWidget() override;

    /// The box itself, for what Qt's types do not carry: system colours, days, saved state.
    /// Its class is in dropdown/VmCalDropDown.h.
    VmCalDropDown& dropDownBox() noexcept;
    const VmCalDropDown& dropDownBox() const noexcept;

    /// The date as the box shows it.
    QString text() const;

    QFont comboFont() const;
    QDate date() const;
    QString dateFormat() const;
    QDateTime dateValue() const;
    DropDownAlignment dropDownAlignment() const;
    Appearance dropDownAppearance() const;
    int dropDownHeight() const;
    bool dropDownState() const;
    int dropDownWidth() const;
    /// Whether the calendar opens above the box where there is no room below it, and moves sideways
    /// onto the screen. Off by default: it may leave the screen.
    bool keepDropDownOnScreen() const;
    MonthYearSelStyle monthYearSelStyle() const;

    /// Holds the longest date of the format, in the font as it is.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setComboFont(const QFont& value);
    void resetComboFont();
    void setDate(QDate value);
    void setDateFormat(const QString& value);
    void setDateValue(const QDateTime& value);
    void setDropDownAlignment(DropDownAlignment value);
    void setDropDownAppearance(Appearance value);
    void setDropDownHeight(int value);
    void setDropDownState(bool value);
    void setDropDownWidth(int value);
    void setKeepDropDownOnScreen(bool value);
    void setMonthYearSelStyle(MonthYearSelStyle value);

    void setNoLostFocus(bool value);

Q_SIGNALS:
    // The property has been set, or what it follows has changed: the font; the calendar opens or
    // closes.
    void comboFontChanged();
    void dateFormatChanged();
    void dropDownAlignmentChanged();
    void dropDownAppearanceChanged();
    void dropDownHeightChanged();
    void dropDownStateChanged();
    void dropDownWidthChanged();
    void keepDropDownOnScreenChanged();
    void monthYearSelStyleChanged();

    /// `dateValue` is another moment, whoever has changed it.
    void dateValueChanged(const QDateTime& newDate);

    // Events of the box, as those of the base class. A change of the window or the focus that
    // closes the calendar is complete before `monthChanged`, `yearChanged` and `closeUp`.
    void closeUp();
    /// Before the calendar shows, which `cancel` keeps from it.
    void dropDown(velmora::VmDropDownArguments* opening);

protected:
    bool event(QEvent* event) override;
    /// Ctrl+C copies the text, unless a slot has stopped the key.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Host;

    Host& Own() const noexcept;
};

}  // namespace velmora
