#pragma once

#include <unknwn.h>
#include <windows.h>

#include <wrl/client.h>

#include <atomic>

namespace velmora {

/// Keeps the module loaded: one in every object that a client may hold.
class ModuleLock {
public:
    ModuleLock() noexcept { ++s_count; }
    ModuleLock(const ModuleLock&) noexcept { ++s_count; }
    ModuleLock& operator=(const ModuleLock&) noexcept = default;
    ~ModuleLock() { --s_count; }

    static long Count() noexcept { return s_count; }
    static void Add() noexcept { ++s_count; }  // for `IClassFactory::LockServer`
    static void Remove() noexcept { --s_count; }

private:
    static inline std::atomic<long> s_count = 0;
};

/// The reference count and the interfaces of an object on the heap, made with one reference.
/// An interface that others derive from (`IPersist`, `IOleWindow`, `IDispatch`) is answered by an
/// override of `Find`.
template <class First, class... Others>
class ComObject : public First, public Others... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = Find(iid);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++m_references); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --m_references;
        if (left == 0) {
            m_references = 1;  // what the destructor calls may count
            delete this;
        }
        return static_cast<ULONG>(left);
    }

protected:
    virtual ~ComObject() = default;

    /// The interface of that identifier, not counted; null for none.
    virtual void* Find(REFIID iid) {
        if (iid == __uuidof(IUnknown)) return static_cast<IUnknown*>(static_cast<First*>(this));
        void* found = nullptr;
        (Match<First>(iid, found) || ... || Match<Others>(iid, found));
        return found;
    }

private:
    template <class Interface>
    bool Match(REFIID iid, void*& found) {
        if (iid != __uuidof(Interface)) return false;
        found = static_cast<Interface*>(this);
        return true;
    }

    std::atomic<long> m_references = 1;
    ModuleLock m_lock;
};

/// The only reference to a new object. (`ComPtr::Attach` of mingw-w64 counts another one.)
template <class T>
Microsoft::WRL::ComPtr<T> Adopt(T* fresh) noexcept {
    Microsoft::WRL::ComPtr<T> pointer;
    *pointer.GetAddressOf() = fresh;
    return pointer;
}

}  // namespace velmora
