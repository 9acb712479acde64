#pragma once

#include "VelmoraCalendar/QtExport.h"
#include "platform/PropertyBag.h"

#include <QString>

class QSettings;

namespace velmora {

/// A store in one group of the application's settings. Every value is an entry of text with its
/// type, as in the text file ("date 43905.5"), so that it is the same behind every format of
/// settings. Entries of other programs or people are read by what they are: numbers, Booleans,
/// text. Names are those of properties: letters and digits.
class VELMORA_QT_API QtSettingsBag final : public PropertyBag {
public:
    /// `settings` outlives the bag. An empty group stores at the top of the current one.
    explicit QtSettingsBag(QSettings& settings, QString group = {});

    /// An entry that begins like a value with its type but is damaged counts as text.
    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override;
    /// A value that is the default now removes the entry. Error 13: an object other than a font, a
    /// picture or none. ValueTextError: a picture of more than 64 MiB.
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override;

private:
    QString KeyOf(std::string_view name) const;

    QSettings& m_settings;
    QString m_prefix;
};

}  // namespace velmora
