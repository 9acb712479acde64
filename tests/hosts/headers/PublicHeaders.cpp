// Compiled only: a program with folders of its own that are called as the library's, without Qt's
// keywords, to which a window system has done its worst.
#include <QDateTime>
#include <QDialog>
#include <QFont>
#include <QImage>
#include <QLocale>
#include <QPixmap>
#include <QString>

#include <X11/Xlib.h>

#include <VelmoraCalendar/PropertyPageDialog.h>
#include <VelmoraCalendar/QtConversions.h>
#include <VelmoraCalendar/QtSettingsBag.h>
#include <VelmoraCalendar/VmCalDropDownWidget.h>
#include <VelmoraCalendar/VmCalendarWidget.h>

class Calendar : public velmora::VmCalendarWidget {
    Q_OBJECT
};

#include "PublicHeaders.moc"
