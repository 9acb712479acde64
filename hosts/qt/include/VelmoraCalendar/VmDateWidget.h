#pragma once

#include "VelmoraCalendar/QtExport.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace velmora {

class DataObject;
class StdPicture;
class VmDay;
/// What is dragged; its class is in platform/DataObject.h.
using DataRef = std::shared_ptr<DataObject>;
/// A day to be decorated; its class is in model/VmDay.h.
using DayRef = std::shared_ptr<VmDay>;
/// A picture of a day; its class is in platform/FontAndPicture.h.
using PictureRef = std::shared_ptr<StdPicture>;

/// What the month calendar and the date box have in common: the look and the limits of a calendar,
/// its input and its drags. Properties and signals are those of `VmCalendar` in Qt's spelling; the
/// ranges, refusals and the moments at which events fire are described there. A refused value
/// leaves the property as it was and is reported with qWarning.
///
/// Colours that were never set follow the widget's palette; dates and names follow its locale.
/// Any slot may change any property or delete the widget.
class VELMORA_QT_API VmDateWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QDate dateMax READ dateMax WRITE setDateMax)
    Q_PROPERTY(QDate dateMin READ dateMin WRITE setDateMin)
    Q_PROPERTY(Appearance dayAppearance READ dayAppearance WRITE setDayAppearance)
    Q_PROPERTY(
        TextAlignment dayCaptionAlignment READ dayCaptionAlignment WRITE setDayCaptionAlignment)
    Q_PROPERTY(QColor dayDefaultBackColor READ dayDefaultBackColor WRITE setDayDefaultBackColor)
    Q_PROPERTY(QColor dayDefaultForeColor READ dayDefaultForeColor WRITE setDayDefaultForeColor)
    Q_PROPERTY(QFont dayFont READ dayFont WRITE setDayFont)
    Q_PROPERTY(TextAlignment dayNumberAlignment READ dayNumberAlignment WRITE setDayNumberAlignment)
    Q_PROPERTY(
        QColor dayOtherMonthForeColor READ dayOtherMonthForeColor WRITE setDayOtherMonthForeColor)
    Q_PROPERTY(
        PictureAlignment dayPictureAlignment READ dayPictureAlignment WRITE setDayPictureAlignment)
    Q_PROPERTY(WeekDay firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek)
    Q_PROPERTY(Appearance monthAppearance READ monthAppearance WRITE setMonthAppearance)
    Q_PROPERTY(QColor monthBackColor READ monthBackColor WRITE setMonthBackColor)
    Q_PROPERTY(MonthDisplay monthDisplay READ monthDisplay WRITE setMonthDisplay)
    Q_PROPERTY(QFont monthFont READ monthFont WRITE setMonthFont)
    Q_PROPERTY(QColor monthForeColor READ monthForeColor WRITE setMonthForeColor)
    Q_PROPERTY(QPixmap mouseIcon READ mouseIcon WRITE setMouseIcon)
    Q_PROPERTY(int mousePointer READ mousePointer WRITE setMousePointer)
    Q_PROPERTY(OLEDropMode oleDropMode READ oleDropMode WRITE setOleDropMode)
    Q_PROPERTY(QColor selectedDayBackColor READ selectedDayBackColor WRITE setSelectedDayBackColor)
    Q_PROPERTY(QColor selectedDayForeColor READ selectedDayForeColor WRITE setSelectedDayForeColor)
    Q_PROPERTY(bool showWeekend READ showWeekend WRITE setShowWeekend)
    Q_PROPERTY(QColor todayBackColor READ todayBackColor WRITE setTodayBackColor)
    Q_PROPERTY(QColor todayForeColor READ todayForeColor WRITE setTodayForeColor)
    Q_PROPERTY(Appearance weekDayAppearance READ weekDayAppearance WRITE setWeekDayAppearance)
    Q_PROPERTY(QColor weekDayBackColor READ weekDayBackColor WRITE setWeekDayBackColor)
    Q_PROPERTY(TextAlignment weekDayCaptionAlignment READ weekDayCaptionAlignment WRITE
                   setWeekDayCaptionAlignment)
    Q_PROPERTY(WeekDayDisplay weekDayDisplay READ weekDayDisplay WRITE setWeekDayDisplay)
    Q_PROPERTY(QFont weekDayFont READ weekDayFont WRITE setWeekDayFont)
    Q_PROPERTY(QColor weekDayForeColor READ weekDayForeColor WRITE setWeekDayForeColor)

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

    void repaintControl();
    void oleDrag();
    void aboutBox();

Q_SIGNALS:
    /// Any property has a new value; the name under which it is saved.
    void propertyChanged(const QString& name);

    // The events, with the arguments of `CalendarEvents`. References can be written by slots that
    // are connected directly. Coordinates are pixels, of an open calendar if the mouse is used
    // there.

    /// Of the events of one step or choice. The month list tells the shown date with it, page keys
    /// and limits move the selected one without it. To follow the date connect to
    /// `dateValueChanged`, which tells every new value, whoever has set it, and nothing else.
    void dateChanged(QDate newDate);
    void dayChanged(int newDay);
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
    class Host;  // the control and the platform interfaces that it stands on

    explicit VmDateWidget(QWidget* parent);
    /// To be called by the destructor of the derived class: events on the way find the host gone.
    void EndHost();

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
