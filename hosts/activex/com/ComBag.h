#pragma once

#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/com/ObjectBridge.h"
#include "platform/Hosting.h"
#include "platform/stores/MemoryBag.h"

#include <ocidl.h>
#include <windows.h>

#include <memory>
#include <string_view>

namespace velmora {

/// A container's bag: fonts and pictures are objects in it. A name that is missing, or whose value
/// cannot be read, gives the default.
class ComBag final : public PropertyBag {
public:
    /// `log` may be null; it learns of values that cannot be read. All of them outlive the bag.
    ComBag(IPropertyBag& bag, ObjectBridge& objects, IErrorLog* log = nullptr)
        : m_bag(bag), m_objects(objects), m_log(log) {}

    /// Writes what has its default, too.
    void SaveAll(bool all) { m_savesAll = all; }

    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override;
    /// Error: what the bag refuses.
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override;

private:
    IPropertyBag& m_bag;
    ObjectBridge& m_objects;
    IErrorLog* m_log;
    bool m_savesAll = false;
};

/// A client's object as a bag: an `IPropertyBag`, or one with methods `ReadProperty(Name, Default)`
/// and `WriteProperty(Name, Value, Default)`. Error 13: neither. `object` and `objects` outlive it.
std::unique_ptr<PropertyBag> BagOfClient(const VARIANT& object, ObjectBridge& objects);

/// The values as a stream keeps them: their length and the text of `FormatProperties`. The same
/// bytes serve `IPersistStream` and the stream of a storage.
/// Error: what the stream refuses; a value too large.
void WriteBag(const MemoryBag& values, IStream& stream);
/// Reads no byte beyond them. Error: what the stream refuses; damage.
MemoryBag ReadBag(IStream& stream);

}  // namespace velmora
