#include "apps/gallery/SavedSettings.h"

#include "calendar/VmCalendar.h"
#include "platform/stores/TextFileBag.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <filesystem>

namespace velmora {
namespace {

TextFileBag FileAt(const QString& path) {
    return TextFileBag(std::filesystem::path(path.toStdU16String()));
}

}  // namespace

QString SavedSettings::UsualPath() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder + QStringLiteral("/velmora-gallery/calendar.txt");
}

QString SavedSettings::Load(VmCalendarWidget& calendar) const {
    if (m_path.isEmpty()) return {};
    TextFileBag file = FileAt(m_path);
    try {
        file.Load();
    } catch (const PropertyFileError& error) {
        return error.Problem() == FileProblem::Missing ? QString()
                                                       : QString::fromUtf8(error.what());
    }
    calendar.calendar().ReadProps(file);
    emit calendar.propertyChanged(QString());  // all of them: panels read them anew
    return {};
}

QString SavedSettings::Save(const VmCalendarWidget& calendar) const {
    if (m_path.isEmpty()) return {};
    QDir().mkpath(QFileInfo(m_path).path());
    TextFileBag file = FileAt(m_path);
    try {
        calendar.calendar().WriteProps(file);
        file.Save();
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

}  // namespace velmora
