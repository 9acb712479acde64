#pragma once

#include <QCoreApplication>
#include <QString>

#include <string>
#include <string_view>

namespace velmora {

/// A text of the library's own in the language of the application: as its translators have it in
/// the context "VelmoraCalendar", else as it stands.
inline QString Translated(std::string_view text) {
    return QCoreApplication::translate("VelmoraCalendar", std::string(text).c_str());
}

}  // namespace velmora
