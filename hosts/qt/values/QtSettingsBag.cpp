#include "VelmoraCalendar/QtSettingsBag.h"

#include "VelmoraCalendar/QtConversions.h"
#include "platform/stores/MemoryBag.h"
#include "platform/stores/ValueText.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

namespace velmora {
namespace {

Variant ReadText(const QString& text) {
    const std::string utf8 = text.toStdString();
    try {
        return ParseValue(utf8);
    } catch (const ValueTextError&) {
        return utf8;
    }
}

Variant ToValue(const QVariant& stored) {
    switch (stored.typeId()) {
        case QMetaType::Bool: return stored.toBool();
        case QMetaType::Int:
        case QMetaType::UInt: return static_cast<std::int32_t>(stored.toLongLong());
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double: return stored.toDouble();
        // What an unquoted comma in a settings file makes of a text.
        case QMetaType::QStringList: return ReadText(stored.toStringList().join(", "));
        default: return ReadText(stored.toString());
    }
}

}  // namespace

QtSettingsBag::QtSettingsBag(QSettings& settings, QString group)
    : m_settings(settings), m_prefix(group.isEmpty() ? QString() : group + u'/') {}

QString QtSettingsBag::KeyOf(std::string_view name) const { return m_prefix + ToQString(name); }

Variant QtSettingsBag::ReadProperty(std::string_view name, const Variant& defaultValue) {
    const QString key = KeyOf(name);
    return m_settings.contains(key) ? ToValue(m_settings.value(key)) : defaultValue;
}

void QtSettingsBag::WriteProperty(std::string_view name, const Variant& value,
                                  const Variant& defaultValue) {
    const QString text = ToQString(FormatValue(value));
    if (IsDefaultValue(value, defaultValue)) {
        m_settings.remove(KeyOf(name));
    } else {
        m_settings.setValue(KeyOf(name), text);
    }
}

}  // namespace velmora
