#pragma once

#include "VelmoraCalendar/QtExport.h"
#include "VelmoraCalendar/VmEventArguments.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace velmora {

class StdPicture;
class VmDay;
/// A day to be decorated; its class is in model/VmDay.h.
using DayRef = std::shared_ptr<VmDay>;
/// A picture of a day; its class is in platform/FontAndPicture.h.
using PictureRef = std::shared_ptr<StdPicture>;

/// What the month calendar and the date box have in common: the look and the limits of a calendar,
/// its input and its drags. Properties and signals are those of `VmCalendar` in Qt's spelling; the
/// ranges, refusals and the moments at which events fire are described there. A refused value
/// leaves the property as it was and is reported with qWarning.
///
/// Colours and fonts that were never set, or have been reset, follow the widget's palette and font;
/// dates and names follow its locale. Colours are opaque. A style sheet's `background-color`,
/// `color`, `selection-background-color`, `selection-color` and `font` take the palette's place;
/// its `border` covers the outermost pixels. Any slot may change any property or delete the widget.
class VELMORA_QT_API VmDateWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool classicLook READ classicLook WRITE setClassicLook NOTIFY classicLookChanged)
    Q_PROPERTY(QDate dateMax READ dateMax WRITE setDateMax NOTIFY dateMaxChanged)
    Q_PROPERTY(QDate dateMin READ dateMin WRITE setDateMin NOTIFY dateMinChanged)
    Q_PROPERTY(Appearance dayAppearance READ dayAppearance WRITE setDayAppearance NOTIFY
                   dayAppearanceChanged)
    Q_PROPERTY(TextAlignment dayCaptionAlignment READ dayCaptionAlignment WRITE
                   setDayCaptionAlignment NOTIFY dayCaptionAlignmentChanged)
    Q_PROPERTY(QColor dayDefaultBackColor READ dayDefaultBackColor WRITE setDayDefaultBackColor
                   RESET resetDayDefaultBackColor NOTIFY dayDefaultBackColorChanged)
    Q_PROPERTY(QColor dayDefaultForeColor READ dayDefaultForeColor WRITE setDayDefaultForeColor
                   RESET resetDayDefaultForeColor NOTIFY dayDefaultForeColorChanged)
    Q_PROPERTY(QFont dayFont READ dayFont WRITE setDayFont RESET resetDayFont NOTIFY dayFontChanged)
    Q_PROPERTY(TextAlignment dayNumberAlignment READ dayNumberAlignment WRITE setDayNumberAlignment
                   NOTIFY dayNumberAlignmentChanged)
    Q_PROPERTY(
        QColor dayOtherMonthForeColor READ dayOtherMonthForeColor WRITE setDayOtherMonthForeColor
            RESET resetDayOtherMonthForeColor NOTIFY dayOtherMonthForeColorChanged)
    Q_PROPERTY(PictureAlignment dayPictureAlignment READ dayPictureAlignment WRITE
                   setDayPictureAlignment NOTIFY dayPictureAlignmentChanged)
    Q_PROPERTY(bool extendedNavigation READ extendedNavigation WRITE setExtendedNavigation NOTIFY
                   extendedNavigationChanged)
    Q_PROPERTY(WeekDay firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek NOTIFY
                   firstDayOfWeekChanged)
    Q_PROPERTY(Appearance monthAppearance READ monthAppearance WRITE setMonthAppearance NOTIFY
                   monthAppearanceChanged)
    Q_PROPERTY(QColor monthBackColor READ monthBackColor WRITE setMonthBackColor RESET
                   resetMonthBackColor NOTIFY monthBackColorChanged)
    Q_PROPERTY(MonthDisplay monthDisplay READ monthDisplay WRITE setMonthDisplay NOTIFY
                   monthDisplayChanged)
    Q_PROPERTY(QFont monthFont READ monthFont WRITE setMonthFont RESET resetMonthFont NOTIFY
                   monthFontChanged)
    Q_PROPERTY(QColor monthForeColor READ monthForeColor WRITE setMonthForeColor RESET
                   resetMonthForeColor NOTIFY monthForeColorChanged)
    Q_PROPERTY(QPixmap mouseIcon READ mouseIcon WRITE setMouseIcon NOTIFY mouseIconChanged)
    Q_PROPERTY(int mousePointer READ mousePointer WRITE setMousePointer NOTIFY mousePointerChanged)
    Q_PROPERTY(
        OLEDropMode oleDropMode READ oleDropMode WRITE setOleDropMode NOTIFY oleDropModeChanged)
    Q_PROPERTY(QColor selectedDayBackColor READ selectedDayBackColor WRITE setSelectedDayBackColor
                   RESET resetSelectedDayBackColor NOTIFY selectedDayBackColorChanged)
    Q_PROPERTY(QColor selectedDayForeColor READ selectedDayForeColor WRITE setSelectedDayForeColor
                   RESET resetSelectedDayForeColor NOTIFY selectedDayForeColorChanged)
    Q_PROPERTY(bool showWeekend READ showWeekend WRITE setShowWeekend NOTIFY showWeekendChanged)
    Q_PROPERTY(QColor todayBackColor READ todayBackColor WRITE setTodayBackColor RESET
                   resetTodayBackColor NOTIFY todayBackColorChanged)
    Q_PROPERTY(QColor todayForeColor READ todayForeColor WRITE setTodayForeColor RESET
                   resetTodayForeColor NOTIFY todayForeColorChanged)
    Q_PROPERTY(Appearance weekDayAppearance READ weekDayAppearance WRITE setWeekDayAppearance NOTIFY
                   weekDayAppearanceChanged)
    Q_PROPERTY(QColor weekDayBackColor READ weekDayBackColor WRITE setWeekDayBackColor RESET
                   resetWeekDayBackColor NOTIFY weekDayBackColorChanged)
    Q_PROPERTY(TextAlignment weekDayCaptionAlignment READ weekDayCaptionAlignment WRITE
                   setWeekDayCaptionAlignment NOTIFY weekDayCaptionAlignmentChanged)
    Q_PROPERTY(WeekDayDisplay weekDayDisplay READ weekDayDisplay WRITE setWeekDayDisplay NOTIFY
                   weekDayDisplayChanged)
    Q_PROPERTY(QFont weekDayFont READ weekDayFont WRITE setWeekDayFont RESET resetWeekDayFont NOTIFY
                   weekDayFontChanged)
    Q_PROPERTY(QColor weekDayForeColor READ weekDayForeColor WRITE setWeekDayForeColor RESET
                   resetWeekDayForeColor NOTIFY weekDayForeColorChanged)

public:
    enum Appearance : int { Flat = 0, ThreeD = 1 };
    Q_ENUM(Appearance)
    /// Left, centre and right columns of top, middle and bottom.
    enum TextAlignment : int {
        TextTopLeft = 0,
        TextMiddleLeft = 1,
        TextBottomLeft = 2,
        TextTopCenter = 3,
        TextMiddleCenter = 4,
        TextBottomCenter = 5,
        TextTopRight = 6,
        TextMiddleRight = 7,
        TextBottomRight = 8,
    };
    Q_ENUM(TextAlignment)
    enum PictureAlignment : int {
        PictTopLeft = 0,
        PictMiddleLeft = 1,
        PictBottomLeft = 2,
        PictTopCenter = 3,
        PictMiddleCenter = 4,
        PictBottomCenter = 5,
        PictTopRight = 6,
        PictMiddleRight = 7,
        PictBottomRight = 8,
        PictStretch = 9,
        PictTile = 10,
        PictLeftOfText = 11,
        PictRightOfText = 12,
        PictAboveText = 13,
        PictBelowText = 14,
    };
    Q_ENUM(PictureAlignment)
    enum WeekDay : int {
        Sunday = 1,
        Monday = 2,
        Tuesday = 3,
        Wednesday = 4,
        Thursday = 5,
        Friday = 6,
        Saturday = 7,
    };
    Q_ENUM(WeekDay)
    enum MonthDisplay : int { MonthFullName = 0, MonthAbbrName = 1 };
    Q_ENUM(MonthDisplay)
    enum WeekDayDisplay : int {
        WeekdayNone = 0,
        WeekDayFullName = 1,
        WeekDayAbbrName = 2,
        WeekDayLetter = 3,
    };
    Q_ENUM(WeekDayDisplay)
    enum OLEDropMode : int { OLENone = 0, OLEManual = 1, OLEAutomatic = 2 };
    Q_ENUM(OLEDropMode)

    ~VmDateWidget() override;

    /// The day with that number, to be decorated: of the shown month of a calendar; in a date box
    /// of the month of `dateValue`, while it is open of the shown one. Null outside 1..its length.
    DayRef day(int dayOfMonth) const;
    DayRef selectedDay() const;

    /// Shown while the mouse rests on the day, in a date box on that of its open calendar; empty,
    /// as at first, for the widget's own tool tip.
    QString dayToolTip(QDate day) const;
    void setDayToolTip(QDate day, const QString& text);

    /// Whether arrow buttons and the box have the raised and sunken edges of the other hosts. Off
    /// by default: the widget's style draws them.
    bool classicLook() const;
    QDate dateMax() const;
    QDate dateMin() const;
    Appearance dayAppearance() const;
    TextAlignment dayCaptionAlignment() const;
    QColor dayDefaultBackColor() const;
    QColor dayDefaultForeColor() const;
    QFont dayFont() const;
    TextAlignment dayNumberAlignment() const;
    QColor dayOtherMonthForeColor() const;
    PictureAlignment dayPictureAlignment() const;
    /// More keys and the wheel, as docs/input.md lists them: Home, End, Ctrl+Home, Space, Enter and
    /// an Escape that gives back the date of before; a held arrow button repeats. Off by default.
    bool extendedNavigation() const;
    WeekDay firstDayOfWeek() const;
    Appearance monthAppearance() const;
    QColor monthBackColor() const;
    MonthDisplay monthDisplay() const;
    QFont monthFont() const;
    QColor monthForeColor() const;
    QPixmap mouseIcon() const;
    int mousePointer() const;
    OLEDropMode oleDropMode() const;
    QColor selectedDayBackColor() const;
    QColor selectedDayForeColor() const;
    bool showWeekend() const;
    QColor todayBackColor() const;
    QColor todayForeColor() const;
    Appearance weekDayAppearance() const;
    QColor weekDayBackColor() const;
    TextAlignment weekDayCaptionAlignment() const;
    WeekDayDisplay weekDayDisplay() const;
    QFont weekDayFont() const;
    QColor weekDayForeColor() const;

public Q_SLOTS:
    void setClassicLook(bool value);
    void setDateMax(QDate value);
    void setDateMin(QDate value);
    void setDayAppearance(Appearance value);
    void setDayCaptionAlignment(TextAlignment value);
    void setDayDefaultBackColor(const QColor& value);
    void setDayDefaultForeColor(const QColor& value);
    void setDayFont(const QFont& value);
    void setDayNumberAlignment(TextAlignment value);
    void setDayOtherMonthForeColor(const QColor& value);
    void setDayPictureAlignment(PictureAlignment value);
    void setExtendedNavigation(bool value);
    void setFirstDayOfWeek(WeekDay value);
    void setMonthAppearance(Appearance value);
    void setMonthBackColor(const QColor& value);
    void setMonthDisplay(MonthDisplay value);
    void setMonthFont(const QFont& value);
    void setMonthForeColor(const QColor& value);
    void setMouseIcon(const QPixmap& value);
    void setMousePointer(int value);
    void setOleDropMode(OLEDropMode value);
    void setSelectedDayBackColor(const QColor& value);
    void setSelectedDayForeColor(const QColor& value);
    void setShowWeekend(bool value);
    void setTodayBackColor(const QColor& value);
    void setTodayForeColor(const QColor& value);
    void setWeekDayAppearance(Appearance value);
    void setWeekDayBackColor(const QColor& value);
    void setWeekDayCaptionAlignment(TextAlignment value);
    void setWeekDayDisplay(WeekDayDisplay value);
    void setWeekDayFont(const QFont& value);
    void setWeekDayForeColor(const QColor& value);

    // Back to what a new widget has: the palette's colours, the widget's font, and cyan behind
    // today.
    void resetDayDefaultBackColor();
    void resetDayDefaultForeColor();
    void resetDayFont();
    void resetDayOtherMonthForeColor();
    void resetMonthBackColor();
    void resetMonthFont();
    void resetMonthForeColor();
    void resetSelectedDayBackColor();
    void resetSelectedDayForeColor();
    void resetTodayBackColor();
    void resetTodayForeColor();
    void resetWeekDayBackColor();
    void resetWeekDayFont();
    void resetWeekDayForeColor();

    void repaintControl();
    void oleDrag();
    void aboutBox();

Q_SIGNALS:
    /// Any property has been set; its name in Qt's spelling. Follows the property's own signal.
    void propertyChanged(const QString& name);

    // The property has been set, or what it follows has changed: palette, font.
    void classicLookChanged();
    void dateMaxChanged();
    void dateMinChanged();
    void dayAppearanceChanged();
    void dayCaptionAlignmentChanged();
    void dayDefaultBackColorChanged();
    void dayDefaultForeColorChanged();
    void dayFontChanged();
    void dayNumberAlignmentChanged();
    void dayOtherMonthForeColorChanged();
    void dayPictureAlignmentChanged();
    void extendedNavigationChanged();
    void firstDayOfWeekChanged();
    void monthAppearanceChanged();
    void monthBackColorChanged();
    void monthDisplayChanged();
    void monthFontChanged();
    void monthForeColorChanged();
    void mouseIconChanged();
    void mousePointerChanged();
    void oleDropModeChanged();
    void selectedDayBackColorChanged();
    void selectedDayForeColorChanged();
    void showWeekendChanged();
    void todayBackColorChanged();
    void todayForeColorChanged();
    void weekDayAppearanceChanged();
    void weekDayBackColorChanged();
    void weekDayCaptionAlignmentChanged();
    void weekDayDisplayChanged();
    void weekDayFontChanged();
    void weekDayForeColorChanged();

    // The events, with the arguments of `CalendarEvents`. Coordinates are pixels, of an open
    // calendar if the mouse is used there.

    /// Of the events of one step or choice. The month list tells the shown date with it, page keys
    /// and limits move the selected one without it. To follow the date connect to
    /// `dateValueChanged`, which tells every new value, whoever has set it, and nothing else.
    void dateChanged(QDate newDate);
    void dayChanged(int newDay);
    void keyUp(velmora::VmKeyArguments* key);
    void keyPress(velmora::VmKeyPressArguments* key);
    /// Before the control acts on the key, with what the slots leave of it.
    void keyDown(velmora::VmKeyArguments* key);
    void monthChanged(int newMonth);
    void mouseDown(int button, int shift, float x, float y);
    void mouseMove(int button, int shift, float x, float y);
    void mouseUp(int button, int shift, float x, float y);
    void oleCompleteDrag(velmora::VmDragArguments* drag);
    void oleDragDrop(velmora::VmDragArguments* drag);
    void oleDragOver(velmora::VmDragArguments* drag);
    void oleGiveFeedback(velmora::VmDragArguments* drag);
    void oleSetData(velmora::VmDragArguments* drag);
    void oleStartDrag(velmora::VmDragArguments* drag);
    void yearChanged(int newYear);

protected:
    class Host;  // the control and the platform interfaces that it stands on

    explicit VmDateWidget(QWidget* parent);
    /// To be called by the destructor of the derived class: events on the way find the host gone.
    void EndHost();
    /// A style sheet's border, over the control's own frame.
    void DrawBorder(QPainter& painter) const;

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

    std::unique_ptr<Host> m_host;

private:
    bool IsFocusInChild() const;
};

/// Pictures for days and pointers. An icon is drawn at 32 x 32 pixels, a bitmap at its own size.
VELMORA_QT_API PictureRef bitmapPicture(const QImage& image);
VELMORA_QT_API PictureRef iconPicture(const QImage& image);

}  // namespace velmora
