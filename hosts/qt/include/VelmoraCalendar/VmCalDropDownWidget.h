#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QDateTime>

#include <memory>

namespace velmora {

class VmCalDropDown;

/// The date box as a Qt widget: a date as text, with a calendar that opens below it. Properties and
/// signals are those of `VmCalDropDown` in Qt's spelling; the ranges, refusals and the moments at
/// which events fire are described there. A refused value leaves the property as it was and is
/// reported with qWarning.
///
/// Colours that were never set follow the widget's palette; dates and names follow its locale.
/// Any slot may change any property or delete the widget.
class VmCalDropDownWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QFont comboFont READ comboFont WRITE setComboFont)
    Q_PROPERTY(QString dateFormat READ dateFormat WRITE setDateFormat)
    Q_PROPERTY(QDate dateMax READ dateMax WRITE setDateMax)
    Q_PROPERTY(QDate dateMin READ dateMin WRITE setDateMin)
    Q_PROPERTY(
        QDateTime dateValue READ dateValue WRITE setDateValue NOTIFY dateValueChanged USER true)
    Q_PROPERTY(velmora::VmCalendarWidget::Appearance dayAppearance READ dayAppearance WRITE
                   setDayAppearance)
    Q_PROPERTY(velmora::VmCalendarWidget::TextAlignment dayCaptionAlignment READ dayCaptionAlignment
                   WRITE setDayCaptionAlignment)
    Q_PROPERTY(QColor dayDefaultBackColor READ dayDefaultBackColor WRITE setDayDefaultBackColor)
    Q_PROPERTY(QColor dayDefaultForeColor READ dayDefaultForeColor WRITE setDayDefaultForeColor)
    Q_PROPERTY(QFont dayFont READ dayFont WRITE setDayFont)
    Q_PROPERTY(velmora::VmCalendarWidget::TextAlignment dayNumberAlignment READ dayNumberAlignment
                   WRITE setDayNumberAlignment)
    Q_PROPERTY(
        QColor dayOtherMonthForeColor READ dayOtherMonthForeColor WRITE setDayOtherMonthForeColor)
    Q_PROPERTY(velmora::VmCalendarWidget::PictureAlignment dayPictureAlignment READ
                   dayPictureAlignment WRITE setDayPictureAlignment)
    Q_PROPERTY(
        DropDownAlignment dropDownAlignment READ dropDownAlignment WRITE setDropDownAlignment)
    Q_PROPERTY(velmora::VmCalendarWidget::Appearance dropDownAppearance READ dropDownAppearance
                   WRITE setDropDownAppearance)
    Q_PROPERTY(int dropDownHeight READ dropDownHeight WRITE setDropDownHeight)
    Q_PROPERTY(
        bool dropDownState READ dropDownState WRITE setDropDownState DESIGNABLE false STORED false)
    Q_PROPERTY(int dropDownWidth READ dropDownWidth WRITE setDropDownWidth)
    Q_PROPERTY(velmora::VmCalendarWidget::WeekDay firstDayOfWeek READ firstDayOfWeek WRITE
                   setFirstDayOfWeek)
    Q_PROPERTY(velmora::VmCalendarWidget::Appearance monthAppearance READ monthAppearance WRITE
                   setMonthAppearance)
    Q_PROPERTY(QColor monthBackColor READ monthBackColor WRITE setMonthBackColor)
    Q_PROPERTY(velmora::VmCalendarWidget::MonthDisplay monthDisplay READ monthDisplay WRITE
                   setMonthDisplay)
    Q_PROPERTY(QFont monthFont READ monthFont WRITE setMonthFont)
    Q_PROPERTY(QColor monthForeColor READ monthForeColor WRITE setMonthForeColor)
    Q_PROPERTY(
        MonthYearSelStyle monthYearSelStyle READ monthYearSelStyle WRITE setMonthYearSelStyle)
    Q_PROPERTY(QPixmap mouseIcon READ mouseIcon WRITE setMouseIcon)
    Q_PROPERTY(int mousePointer READ mousePointer WRITE setMousePointer)
    Q_PROPERTY(
        velmora::VmCalendarWidget::OLEDropMode oleDropMode READ oleDropMode WRITE setOleDropMode)
    Q_PROPERTY(QColor selectedDayBackColor READ selectedDayBackColor WRITE setSelectedDayBackColor)
    Q_PROPERTY(QColor selectedDayForeColor READ selectedDayForeColor WRITE setSelectedDayForeColor)
    Q_PROPERTY(bool showWeekend READ showWeekend WRITE setShowWeekend)
    Q_PROPERTY(QColor todayBackColor READ todayBackColor WRITE setTodayBackColor)
    Q_PROPERTY(QColor todayForeColor READ todayForeColor WRITE setTodayForeColor)
    Q_PROPERTY(velmora::VmCalendarWidget::Appearance weekDayAppearance READ weekDayAppearance WRITE
                   setWeekDayAppearance)
    Q_PROPERTY(QColor weekDayBackColor READ weekDayBackColor WRITE setWeekDayBackColor)
    Q_PROPERTY(velmora::VmCalendarWidget::TextAlignment weekDayCaptionAlignment READ
                   weekDayCaptionAlignment WRITE setWeekDayCaptionAlignment)
    Q_PROPERTY(velmora::VmCalendarWidget::WeekDayDisplay weekDayDisplay READ weekDayDisplay WRITE
                   setWeekDayDisplay)
    Q_PROPERTY(QFont weekDayFont READ weekDayFont WRITE setWeekDayFont)
    Q_PROPERTY(QColor weekDayForeColor READ weekDayForeColor WRITE setWeekDayForeColor)

public:
    enum DropDownAlignment : int {
        LeftJustified = VmLeftJustified,
        RightJustified = VmRightJustified,
    };
    Q_ENUM(DropDownAlignment)
    enum MonthYearSelStyle : int {
        MonthSelNone = VmDDMonthSelNone,
        MonthSelArrows = VmDDMonthSelArrows,
    };
    Q_ENUM(MonthYearSelStyle)

    explicit VmCalDropDownWidget(QWidget* parent = nullptr);
    ~VmCalDropDownWidget() override;

    /// The box itself, for what Qt's types do not carry: system colours, days, saved state.
    /// Its class is in dropdown/VmCalDropDown.h.
    VmCalDropDown& dropDownBox() noexcept;
    const VmCalDropDown& dropDownBox() const noexcept;

    /// The day with that number, to be decorated: of the month of `dateValue`, the shown month
    /// while the calendar is open. Null outside 1..its length.
    DayRef day(int dayOfMonth) const;
    DayRef selectedDay() const;
    /// The date as the box shows it.
    QString text() const;

    QFont comboFont() const;
    QString dateFormat() const;
    QDate dateMax() const;
    QDate dateMin() const;
    QDateTime dateValue() const;
    VmCalendarWidget::Appearance dayAppearance() const;
    VmCalendarWidget::TextAlignment dayCaptionAlignment() const;
    QColor dayDefaultBackColor() const;
    QColor dayDefaultForeColor() const;
    QFont dayFont() const;
    VmCalendarWidget::TextAlignment dayNumberAlignment() const;
    QColor dayOtherMonthForeColor() const;
    VmCalendarWidget::PictureAlignment dayPictureAlignment() const;
    DropDownAlignment dropDownAlignment() const;
    VmCalendarWidget::Appearance dropDownAppearance() const;
    int dropDownHeight() const;
    bool dropDownState() const;
    int dropDownWidth() const;
    VmCalendarWidget::WeekDay firstDayOfWeek() const;
    VmCalendarWidget::Appearance monthAppearance() const;
    QColor monthBackColor() const;
    VmCalendarWidget::MonthDisplay monthDisplay() const;
    QFont monthFont() const;
    QColor monthForeColor() const;
    MonthYearSelStyle monthYearSelStyle() const;
    QPixmap mouseIcon() const;
    int mousePointer() const;
    VmCalendarWidget::OLEDropMode oleDropMode() const;
    QColor selectedDayBackColor() const;
    QColor selectedDayForeColor() const;
    bool showWeekend() const;
    QColor todayBackColor() const;
    QColor todayForeColor() const;
    VmCalendarWidget::Appearance weekDayAppearance() const;
    QColor weekDayBackColor() const;
    VmCalendarWidget::TextAlignment weekDayCaptionAlignment() const;
    VmCalendarWidget::WeekDayDisplay weekDayDisplay() const;
    QFont weekDayFont() const;
    QColor weekDayForeColor() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void setComboFont(const QFont& value);
    void setDateFormat(const QString& value);
    void setDateMax(QDate value);
    void setDateMin(QDate value);
    void setDateValue(const QDateTime& value);
    void setDayAppearance(VmCalendarWidget::Appearance value);
    void setDayCaptionAlignment(VmCalendarWidget::TextAlignment value);
    void setDayDefaultBackColor(const QColor& value);
    void setDayDefaultForeColor(const QColor& value);
    void setDayFont(const QFont& value);
    void setDayNumberAlignment(VmCalendarWidget::TextAlignment value);
    void setDayOtherMonthForeColor(const QColor& value);
    void setDayPictureAlignment(VmCalendarWidget::PictureAlignment value);
    void setDropDownAlignment(DropDownAlignment value);
    void setDropDownAppearance(VmCalendarWidget::Appearance value);
    void setDropDownHeight(int value);
    void setDropDownState(bool value);
    void setDropDownWidth(int value);
    void setFirstDayOfWeek(VmCalendarWidget::WeekDay value);
    void setMonthAppearance(VmCalendarWidget::Appearance value);
    void setMonthBackColor(const QColor& value);
    void setMonthDisplay(VmCalendarWidget::MonthDisplay value);
    void setMonthFont(const QFont& value);
    void setMonthForeColor(const QColor& value);
    void setMonthYearSelStyle(MonthYearSelStyle value);
    void setMouseIcon(const QPixmap& value);
    void setMousePointer(int value);
    void setOleDropMode(VmCalendarWidget::OLEDropMode value);
    void setSelectedDayBackColor(const QColor& value);
    void setSelectedDayForeColor(const QColor& value);
    void setShowWeekend(bool value);
    void setTodayBackColor(const QColor& value);
    void setTodayForeColor(const QColor& value);
    void setWeekDayAppearance(VmCalendarWidget::Appearance value);
    void setWeekDayBackColor(const QColor& value);
    void setWeekDayCaptionAlignment(VmCalendarWidget::TextAlignment value);
    void setWeekDayDisplay(VmCalendarWidget::WeekDayDisplay value);
    void setWeekDayFont(const QFont& value);
    void setWeekDayForeColor(const QColor& value);

    void setNoLostFocus(bool value);
    void repaintControl();
    void oleDrag();
    void aboutBox();

signals:
    /// Any property has a new value; the name under which it is saved.
    void propertyChanged(const QString& name);
    void dateValueChanged(const QDateTime& newDate);

    // The events, with the arguments of `DropDownEvents`. References can be written by slots that
    // are connected directly. Coordinates are pixels, of the calendar if the mouse is used there.
    // A change of the window that closes the calendar is complete before `closeUp`.
    void closeUp();
    void dateChanged(QDate newDate);
    void dayChanged(int newDay);
    void dropDown(bool& cancel);
    void keyUp(qint16& keyCode, qint16& shift);
    void keyPress(qint16& keyAscii);
    void keyDown(qint16& keyCode, qint16& shift);
    void monthChanged(int newMonth);
    void mouseDown(int button, int shift, float x, float y);
    void mouseMove(int button, int shift, float x, float y);
    void mouseUp(int button, int shift, float x, float y);
    void oleCompleteDrag(qint32& effect);
    void oleDragDrop(velmora::DataRef& data, qint32& effect, int button, int shift, float x,
                     float y);
    void oleDragOver(velmora::DataRef& data, qint32& effect, int button, int shift, float x,
                     float y, int state);
    void oleGiveFeedback(qint32& effect, bool& defaultCursors);
    void oleSetData(velmora::DataRef& data, int dataFormat);
    void oleStartDrag(velmora::DataRef& data, qint32& allowedEffects);
    void yearChanged(int newYear);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class Host;  // the platform interfaces of this widget
    std::unique_ptr<Host> m_host;
};

}  // namespace velmora
