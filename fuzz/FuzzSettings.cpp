#include "VelmoraCalendar/QtSettingsBag.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "fuzz/FuzzValues.h"
#include "fuzz/QtSetup.h"
#include "platform/AutomationError.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace velmora::fuzz {
namespace {

/// Reads, paints, and saves to settings that give the same again.
template <class Control>
void LiveWith(QWidget& widget, Control& control, QSettings& settings, const QString& group) {
    QtSettingsBag bag(settings, group);
    control.ReadProps(bag);
    try {
        control.DateValue(Date(43905.5));  // a missing one would be another second's
    } catch (const AutomationError&) {
    }
    widget.resize(220, 160);
    widget.grab();
    const std::string saved = Saved(control);
    settings.remove(group);
    control.WriteProps(bag);
    control.ReadProps(bag);
    if (Saved(control) != saved) Fail("the settings do not give back what was saved");
}

}  // namespace
}  // namespace velmora::fuzz

/// A file of settings, with the groups "Calendar" and "Box", for the widgets.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    fuzz::NeedApplication();
    static const QTemporaryDir folder;
    static int number = 0;  // Qt remembers the settings of a name
    QFile file(folder.filePath(QString::number(++number) + QStringLiteral(".ini")));
    if (!file.open(QIODevice::WriteOnly)) fuzz::Fail("no temporary file");
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    {
        QSettings settings(file.fileName(), QSettings::IniFormat);
        VmCalendarWidget calendar;
        fuzz::LiveWith(calendar, calendar.calendar(), settings, QStringLiteral("Calendar"));
        VmCalDropDownWidget box;
        fuzz::LiveWith(box, box.dropDownBox(), settings, QStringLiteral("Box"));
    }
    file.remove();
    return 0;
}
