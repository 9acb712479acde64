#pragma once

#include "apps/vmhost/Automation.h"
#include "hosts/activex/com/ComObject.h"

#include <ocidl.h>

#include <map>
#include <string>

namespace velmora::vmhost {

/// How a control keeps its properties: not at all yet, or by the interface of that name.
enum class Medium { New, Stream, Storage, Bag };

struct Saved {
    Medium medium = Medium::New;
    ComPtr<IUnknown> where;  // IStream, IStorage or IPropertyBag, as the medium says
};

/// Gives a new control its first state, or what was saved. Throws `HostError`.
void LoadControl(IOleObject& control, const Saved& saved);
/// Throws `HostError`; a control without that interface gives E_NOINTERFACE.
void SaveControl(IOleObject& control, const Saved& target);

/// A property bag as lines of text: `Name = type:value`, objects as class and bytes.
class TextBag : public ComObject<IPropertyBag> {
public:
    /// Takes the lines that `Line` has given; others are passed over.
    void AddLine(const std::string& line);
    std::string Lines() const;

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* errors) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;

private:
    std::map<std::string, std::string> m_values;  // "type:value" by name
};

}  // namespace velmora::vmhost
