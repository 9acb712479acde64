#include "hosts/activex/server/ClassFactory.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/server/ServerClasses.h"

namespace velmora {
namespace {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(const ServerClass& serverClass) : m_class(serverClass) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        return outer ? CLASS_E_NOAGGREGATION : m_class.create(iid, object);
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ModuleLock::Add() : ModuleLock::Remove();
        return S_OK;
    }

private:
    const ServerClass& m_class;
};

}  // namespace

HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const ServerClass& known : ServerClasses()) {
        if (known.clsid != clsid) continue;
        return Guard(
            [&] { return Adopt<IClassFactory>(new ClassFactory(known)).CopyTo(iid, object); });
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace velmora
