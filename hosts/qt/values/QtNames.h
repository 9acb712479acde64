#pragma once

#include <QByteArray>

#include <string_view>

namespace velmora {

/// "DateMin" is `dateMin` in Qt's spelling.
inline QByteArray QtNameOf(std::string_view name) {
    QByteArray result(name.data(), static_cast<qsizetype>(name.size()));
    if (!result.isEmpty()) result[0] = QChar::fromLatin1(result[0]).toLower().toLatin1();
    return result;
}

}  // namespace velmora
