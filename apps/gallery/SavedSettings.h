#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QString>

namespace velmora {

/// Keeps the properties of the live page's calendar in a text file, from one start of the gallery
/// to the next.
class SavedSettings {
public:
    /// An empty path keeps nothing.
    explicit SavedSettings(QString path) : m_path(std::move(path)) {}

    /// The file in the user's configuration folder.
    static QString UsualPath();

    /// Leaves the calendar alone when there is no file, or it is damaged. Returns what is wrong.
    QString Load(VmCalendarWidget& calendar) const;
    QString Save(const VmCalendarWidget& calendar) const;

private:
    QString m_path;
};

}  // namespace velmora
