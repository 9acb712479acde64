#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/com/ComBag.h"
#include "hosts/activex/control/FlagScope.h"
#include "platform/Automation.h"
#include "platform/stores/MemoryBag.h"

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t kStreamName[] = L"Contents";
constexpr DWORD kReading = STGM_READ | STGM_SHARE_EXCLUSIVE;
constexpr DWORD kWriting = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;

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

STDMETHODIMP OleControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (!bag) return E_POINTER;
    const Hold hold(*this);
    return Guard([&] {
        ComBag values(*bag, Objects());
        SaveTo(values);
        if (clearDirty) m_dirty = false;
    });
}

STDMETHODIMP OleControl::InitNew(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (m_storageState != Storage::None) return CO_E_ALREADYINITIALIZED;
    if (const HRESULT made = InitNew(); FAILED(made)) return made;
    m_storage = storage;
    m_storageState = Storage::Normal;
    return S_OK;
}

STDMETHODIMP OleControl::Load(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (m_storageState != Storage::None) return CO_E_ALREADYINITIALIZED;
    ComPtr<IStream> stream;
    const HRESULT opened = storage->OpenStream(kStreamName, nullptr, kReading, 0, &stream);
    if (FAILED(opened)) return opened;
    if (const HRESULT loaded = Load(stream.Get()); FAILED(loaded)) return loaded;
    m_storage = storage;
    m_storageState = Storage::Normal;
    return S_OK;
}

STDMETHODIMP OleControl::Save(IStorage* storage, BOOL sameAsLoad) {
    if (m_storageState == Storage::NoScribble || m_storageState == Storage::HandsOff) {
        return E_UNEXPECTED;
    }
    const ComPtr<IStorage> target = sameAsLoad && !storage ? m_storage : storage;
    if (!target) return E_POINTER;
    ComPtr<IStream> stream;
    const HRESULT made = target->CreateStream(kStreamName, kWriting, 0, 0, &stream);
    if (FAILED(made)) return made;
    const HRESULT saved = Save(stream.Get(), FALSE);
    if (FAILED(saved)) return saved;
    m_savedToOwn = sameAsLoad != FALSE;
    m_storageState = Storage::NoScribble;
    return S_OK;
}

/// Null after a save: the storage of before stays.
STDMETHODIMP OleControl::SaveCompleted(IStorage* storage) {
    const bool mayFollow =
        m_storageState == Storage::NoScribble || m_storageState == Storage::HandsOff;
    if (!mayFollow) return E_UNEXPECTED;
    if (!storage && m_storageState == Storage::HandsOff) return E_INVALIDARG;
    const Hold hold(*this);
    if (storage) m_storage = storage;
    if (storage || m_savedToOwn) m_dirty = false;
    m_storageState = m_storage ? Storage::Normal : Storage::None;
    if (const ComPtr<IOleAdviseHolder> advises = m_advises) advises->SendOnSave();
    return S_OK;
}

STDMETHODIMP OleControl::HandsOffStorage() {
    if (m_storageState == Storage::None || m_storageState == Storage::HandsOff) {
        return E_UNEXPECTED;
    }
    m_storage.Reset();
    m_storageState = Storage::HandsOff;
    return S_OK;
}

}  // namespace velmora
