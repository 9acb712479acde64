#include "hosts/activex/control/ControlStorage.h"

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t kStreamName[] = L"Contents";
constexpr DWORD kReading = STGM_READ | STGM_SHARE_EXCLUSIVE;
constexpr DWORD kWriting = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;

}  // namespace

STDMETHODIMP ControlStorage::InitNew(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (m_state != State::None) return CO_E_ALREADYINITIALIZED;
    if (const HRESULT made = m_control.Stream().InitNew(); FAILED(made)) return made;
    m_storage = storage;
    m_state = State::Normal;
    return S_OK;
}

STDMETHODIMP ControlStorage::Load(IStorage* storage) {
    if (!storage) return E_POINTER;
    if (m_state != State::None) return CO_E_ALREADYINITIALIZED;
    ComPtr<IStream> stream;
    const HRESULT opened = storage->OpenStream(kStreamName, nullptr, kReading, 0, &stream);
    if (FAILED(opened)) return opened;
    if (const HRESULT loaded = m_control.Stream().Load(stream.Get()); FAILED(loaded)) return loaded;
    m_storage = storage;
    m_state = State::Normal;
    return S_OK;
}

STDMETHODIMP ControlStorage::Save(IStorage* storage, BOOL sameAsLoad) {
    if (m_state == State::NoScribble || m_state == State::HandsOff) {
        return E_UNEXPECTED;
    }
    const ComPtr<IStorage> target = sameAsLoad && !storage ? m_storage : storage;
    if (!target) return E_POINTER;
    ComPtr<IStream> stream;
    const HRESULT made = target->CreateStream(kStreamName, kWriting, 0, 0, &stream);
    if (FAILED(made)) return made;
    const HRESULT saved = m_control.Stream().Save(stream.Get(), FALSE);
    if (FAILED(saved)) return saved;
    m_savedToOwn = sameAsLoad != FALSE;
    m_state = State::NoScribble;
    return S_OK;
}

/// Null after a save: the storage of before stays.
STDMETHODIMP ControlStorage::SaveCompleted(IStorage* storage) {
    const bool mayFollow = m_state == State::NoScribble || m_state == State::HandsOff;
    if (!mayFollow) return E_UNEXPECTED;
    if (!storage && m_state == State::HandsOff) return E_INVALIDARG;
    const auto hold = Hold();
    if (storage) m_storage = storage;
    m_state = m_storage ? State::Normal : State::None;
    m_control.OnSaved(storage || m_savedToOwn);
    return S_OK;
}

STDMETHODIMP ControlStorage::HandsOffStorage() {
    if (m_state == State::None || m_state == State::HandsOff) {
        return E_UNEXPECTED;
    }
    m_storage.Reset();
    m_state = State::HandsOff;
    return S_OK;
}

}  // namespace velmora
