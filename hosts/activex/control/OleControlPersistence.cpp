#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/com/ComBag.h"
#include "platform/Automation.h"
#include "platform/FlagScope.h"
#include "platform/stores/MemoryBag.h"

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

// The size, in HIMETRIC, for containers that leave it to the control.
constexpr char kWidthKey[] = "_ExtentX";
constexpr char kHeightKey[] = "_ExtentY";

LONG ReadLength(PropertyBag& bag, std::string_view name, LONG otherwise) {
    const Variant value = bag.ReadProperty(name, Variant(std::int32_t{otherwise}));
    try {
        const auto length = ToInt32(value);
        return length >= 0 ? length : otherwise;
    } catch (const AutomationError&) {
        return otherwise;
    }
}

}  // namespace

void OleControl::EnsureInitialized() {
    if (m_initialized) return;
    m_initialized = true;
    const FlagScope loading(m_loading);
    InitProperties();
    OnAmbientChanged();  // the site may have come before, with another language
}

STDMETHODIMP OleControl::GetClassID(CLSID* clsid) {
    if (!clsid) return E_POINTER;
    *clsid = m_class.clsid;
    return S_OK;
}

/// Only before anything else: a control that has its values keeps them.
STDMETHODIMP OleControl::InitNew() {
    if (m_initialized) return E_UNEXPECTED;
    const Hold hold(*this);
    return Guard([&] {
        EnsureInitialized();
        m_dirty = true;
    });
}

void OleControl::LoadFrom(PropertyBag& bag) {
    {
        const FlagScope loading(m_loading);
        m_extent = {ReadLength(bag, kWidthKey, m_extent.cx),
                    ReadLength(bag, kHeightKey, m_extent.cy)};
        ApplyExtent();
        m_initialized = true;
        ReadProperties(bag);
        OnAmbientChanged();
    }
    m_dirty = false;
    OnWindowChanged();
    ViewChanged();
}

void OleControl::SaveTo(PropertyBag& bag) {
    EnsureInitialized();
    bag.WriteProperty(kWidthKey, Variant(std::int32_t{m_extent.cx}), Variant());
    bag.WriteProperty(kHeightKey, Variant(std::int32_t{m_extent.cy}), Variant());
    WriteProperties(bag);
}

void OleControl::OnSaved(bool isCurrent) {
    if (isCurrent) m_dirty = false;
    m_advises.Saved();
}

STDMETHODIMP OleControl::Load(IStream* stream) {
    if (!stream) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        MemoryBag values = ReadBag(*stream);  // all of it, before anything changes
        LoadFrom(values);
    });
}

STDMETHODIMP OleControl::Save(IStream* stream, BOOL clearDirty) {
    if (!stream) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        MemoryBag values;
        SaveTo(values);
        WriteBag(values, *stream);
        if (clearDirty) m_dirty = false;
    });
}

/// There is no bound on captions and pictures, and nobody needs one.
STDMETHODIMP OleControl::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    size->QuadPart = 0;
    return E_NOTIMPL;
}

STDMETHODIMP OleControl::Load(IPropertyBag* bag, IErrorLog* log) {
    if (!bag) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        ComBag values(*bag, Objects(), log);
        LoadFrom(values);
    });
}

STDMETHODIMP OleControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) {
    if (!bag) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        ComBag values(*bag, Objects());
        values.SaveAll(saveAll != FALSE);
        SaveTo(values);
        if (clearDirty) m_dirty = false;
    });
}

}  // namespace velmora
