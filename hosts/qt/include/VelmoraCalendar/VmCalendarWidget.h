#pragma once

#include "calendar/VmCalendar.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace velmora {

/// The month calendar as a Qt widget. Properties and signals are those of `VmCalendar` in Qt's
/// spelling; the ranges, refusals and the moments at which events fire are described there. A
/// refused value leaves the property as it was and is reported with qWarning.
///
/// Colours that were never set follow the widget's palette; dates and names follow its locale.
/// Any slot may change any property or delete the widget.
class VmCalendarWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(Appearance appearance READ appearance WRITE setAppearance)
    Q_PROPERTY(QDate dateMax READ dateMax WRITE setDateMax)
    Q_PROPERTY(QDate dateMin READ dateMin WRITE setDateMin)
    Q_PROPERTY(QDate dateValue READ dateValue WRITE setDateValue NOTIFY dateValueChanged USER true)
    Q_PROPERTY(Appearance dayAppearance READ dayAppearance WRITE setDayAppearance)
    Q_PROPERTY(QColor dayDefaultBackColor READ dayDefaultBackColor WRITE setDayDefaultBackColor)
    Q_PROPERTY(
        QColor dayOtherMonthForeColor READ dayOtherMonthForeColor WRITE setDayOtherMonthForeColor)
    Q_PROPERTY(QColor dayDefaultForeColor READ dayDefaultForeColor WRITE setDayDefaultForeColor)
    Q_PROPERTY(
        TextAlignment dayCaptionAlignment READ dayCaptionAlignment WRITE setDayCaptionAlignment)
    Q_PROPERTY(QFont dayFont READ dayFont WRITE setDayFont)
    Q_PROPERTY(TextAlignment dayNumberAlignment READ dayNumberAlignment WRITE setDayNumberAlignment)
    Q_PROPERTY(
        PictureAlignment dayPictureAlignment READ dayPictureAlignment WRITE setDayPictureAlignment)
    Q_PROPERTY(WeekDay firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek)
    Q_PROPERTY(Appearance monthAppearance READ monthAppearance WRITE setMonthAppearance)
    Q_PROPERTY(QColor monthBackColor READ monthBackColor WRITE setMonthBackColor)
    Q_PROPERTY(MonthDisplay monthDisplay READ monthDisplay WRITE setMonthDisplay)
    Q_PROPERTY(QFont monthFont READ monthFont WRITE setMonthFont)
    Q_PROPERTY(QColor monthForeColor READ monthForeColor WRITE setMonthForeColor)
    Q_PROPERTY(
        MonthYearSelStyle monthYearSelStyle READ monthYearSelStyle WRITE setMonthYearSelStyle)
    Q_PROPERTY(QPixmap mouseIcon READ mouseIcon WRITE setMouseIcon)
    Q_PROPERTY(int mousePointer READ mousePointer WRITE setMousePointer)
    Q_PROPERTY(QColor selectedDayBackColor READ selectedDayBackColor WRITE setSelectedDayBackColor)
    Q_PROPERTY(QColor selectedDayForeColor READ selectedDayForeColor WRITE setSelectedDayForeColor)
    Q_PROPERTY(QColor todayBackColor READ todayBackColor WRITE setTodayBackColor)
    Q_PROPERTY(QColor todayForeColor READ todayForeColor WRITE setTodayForeColor)
    Q_PROPERTY(Appearance weekDayAppearance READ weekDayAppearance WRITE setWeekDayAppearance)
    Q_PROPERTY(QColor weekDayBackColor READ weekDayBackColor WRITE setWeekDayBackColor)
    Q_PROPERTY(WeekDayDisplay weekDayDisplay READ weekDayDisplay WRITE setWeekDayDisplay)
    Q_PROPERTY(QFont weekDayFont READ weekDayFont WRITE setWeekDayFont)
    Q_PROPERTY(QColor weekDayForeColor READ weekDayForeColor WRITE setWeekDayForeColor)
    Q_PROPERTY(TextAlignment weekDayCaptionAlignment READ weekDayCaptionAlignment WRITE
                   setWeekDayCaptionAlignment)
    Q_PROPERTY(bool showWeekend READ showWeekend WRITE setShowWeekend)
    Q_PROPERTY(OLEDropMode oleDropMode READ oleDropMode WRITE setOleDropMode)

public:
    enum Appearance : int { Flat = VmAppearanceFlat, ThreeD = VmAppearance3D };
    Q_ENUM(Appearance)
    enum TextAlignment : int {
        TextTopLeft = VmTextTopLeft,
        TextMiddleLeft = VmTextMiddleLeft,
        TextBottomLeft = VmTextBottomLeft,
        TextTopCenter = VmTextTopCenter,
        TextMiddleCenter = VmTextMiddleCenter,
        TextBottomCenter = VmTextBottomCenter,
        TextTopRight = VmTextTopRight,
        TextMiddleRight = VmTextMiddleRight,
        TextBottomRight = VmTextBottomRight,
    };
    Q_ENUM(TextAlignment)
    enum PictureAlignment : int {
        PictTopLeft = VmPictTopLeft,
        PictMiddleLeft = VmPictMiddleLeft,
        PictBottomLeft = VmPictBottomLeft,
        PictTopCenter = VmPictTopCenter,
        PictMiddleCenter = VmPictMiddleCenter,
        PictBottomCenter = VmPictBottomCenter,
        PictTopRight = VmPictTopRight,
        PictMiddleRight = VmPictMiddleRight,
        PictBottomRight = VmPictBottomRight,
        PictStretch = VmPictStretch,
        PictTile = VmPictTile,
        PictLeftOfText = VmPictLeftOfText,
        PictRightOfText = VmPictRightOfText,
        PictAboveText = VmPictAboveText,
        PictBelowText = VmPictBelowText,
    };
    Q_ENUM(PictureAlignment)
    enum WeekDay : int {
        Sunday = VmSunday,
        Monday = VmMonday,
        Tuesday = VmTuesday,
        Wednesday = VmWednesday,
        Thursday = VmThursday,
        Friday = VmFriday,
        Saturday = VmSaturday,
    };
    Q_ENUM(WeekDay)
    enum MonthDisplay : int { MonthFullName = VmMonthFullName, MonthAbbrName = VmMonthAbbrName };
    Q_ENUM(MonthDisplay)
    enum MonthYearSelStyle : int {
        MonthSelNone = VmMonthSelNone,
        MonthSelArrows = VmMonthSelArrows,
        MonthSelCombo = VmMonthSelCombo,
        MonthSelScrollbar = VmMonthSelScrollbar,
    };
    Q_ENUM(MonthYearSelStyle)
    enum WeekDayDisplay : int {
        WeekdayNone = VmWeekdayNone,
        WeekDayFullName = VmWeekDayFullName,
        WeekDayAbbrName = VmWeekDayAbbrName,
        WeekDayLetter = VmWeekDayLetter,
    };
    Q_ENUM(WeekDayDisplay)
    enum OLEDropMode : int {
        OLENone = VmOLENone,
        OLEManual = VmOLEManual,
        OLEAutomatic = VmOLEAutomatic,
    };
    Q_ENUM(OLEDropMode)

    explicit VmCalendarWidget(QWidget* parent = nullptr);
    ~VmCalendarWidget() override;

    /// The calendar itself, for what Qt's types do not carry: system colours, days, saved state.
    VmCalendar& calendar() noexcept;
    const VmCalendar& calendar() const noexcept;

    /// The day of the shown month with that number, to be decorated. Null outside 1..its length.
    DayRef day(int dayOfMonth) const;
    DayRef selectedDay() const;
    /// The grid shows the month of this date.
    QDate shownDate() const;

    Appearance appearance() const;
    QDate dateMax() const;
    QDate dateMin() const;
    QDate dateValue() const;
    Appearance dayAppearance() const;
    QColor dayDefaultBackColor() const;
    QColor dayOtherMonthForeColor() const;
    QColor dayDefaultForeColor() const;
    TextAlignment dayCaptionAlignment() const;
    QFont dayFont() const;
    TextAlignment dayNumberAlignment() const;
    PictureAlignment dayPictureAlignment() const;
    WeekDay firstDayOfWeek() const;
    Appearance monthAppearance() const;
    QColor monthBackColor() const;
    MonthDisplay monthDisplay() const;
    QFont monthFont() const;
    QColor monthForeColor() const;
    MonthYearSelStyle monthYearSelStyle() const;
    QPixmap mouseIcon() const;
    int mousePointer() const;
    QColor selectedDayBackColor() const;
    QColor selectedDayForeColor() const;
    QColor todayBackColor() const;
    QColor todayForeColor() const;
    Appearance weekDayAppearance() const;
    QColor weekDayBackColor() const;
    WeekDayDisplay weekDayDisplay() const;
    QFont weekDayFont() const;
    QColor weekDayForeColor() const;
    TextAlignment weekDayCaptionAlignment() const;
    bool showWeekend() const;
    OLEDropMode oleDropMode() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void setAppearance(Appearance value);
    void setDateMax(QDate value);
    void setDateMin(QDate value);
    void setDateValue(QDate value);
    void setDayAppearance(Appearance value);
    void setDayDefaultBackColor(const QColor& value);
    void setDayOtherMonthForeColor(const QColor& value);
    void setDayDefaultForeColor(const QColor& value);
    void setDayCaptionAlignment(TextAlignment value);
    void setDayFont(const QFont& value);
    void setDayNumberAlignment(TextAlignment value);
    void setDayPictureAlignment(PictureAlignment value);
    void setFirstDayOfWeek(WeekDay value);
    void setMonthAppearance(Appearance value);
    void setMonthBackColor(const QColor& value);
    void setMonthDisplay(MonthDisplay value);
    void setMonthFont(const QFont& value);
    void setMonthForeColor(const QColor& value);
    void setMonthYearSelStyle(MonthYearSelStyle value);
    void setMouseIcon(const QPixmap& value);
    void setMousePointer(int value);
    void setSelectedDayBackColor(const QColor& value);
    void setSelectedDayForeColor(const QColor& value);
    void setTodayBackColor(const QColor& value);
    void setTodayForeColor(const QColor& value);
    void setWeekDayAppearance(Appearance value);
    void setWeekDayBackColor(const QColor& value);
    void setWeekDayDisplay(WeekDayDisplay value);
    void setWeekDayFont(const QFont& value);
    void setWeekDayForeColor(const QColor& value);
    void setWeekDayCaptionAlignment(TextAlignment value);
    void setShowWeekend(bool value);
    void setOleDropMode(OLEDropMode value);

    void setNoRepaintControl(bool value);
    void setAlwaysDateChanged(bool value);
    void repaintControl();
    void oleDrag();
    void aboutBox();

signals:
    /// Any property has a new value; the published name.
    void propertyChanged(const QString& name);
    void dateValueChanged(QDate newDate);

    // The events, with the arguments of `CalendarEvents`. References can be written by slots that
    // are connected directly. Coordinates are pixels.
    void click();
    void dateChanged(QDate newDate);
    void dayChanged(int newDay);
    void dblClick();
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
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void ChainChildren();
    bool IsFocusInChild() const;

    class Host;  // the platform interfaces of this widget
    std::unique_ptr<Host> m_host;
    bool m_painted = false;
};

/// Pictures for days and pointers. An icon is drawn at 32 x 32 pixels, a bitmap at its own size.
PictureRef bitmapPicture(const QImage& image);
PictureRef iconPicture(const QImage& image);

}  // namespace velmora
