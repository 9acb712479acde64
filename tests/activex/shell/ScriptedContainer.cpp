#include "tests/activex/shell/ScriptedContainer.h"

#include <utility>

namespace velmora {

ScriptedContainer::ScriptedContainer()
    : window(CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                             400, 300, nullptr, nullptr, nullptr, nullptr)) {}

ScriptedContainer::~ScriptedContainer() {
    if (window) DestroyWindow(window);
}

void* ScriptedContainer::Find(REFIID iid) {
    if (iid == IID_IOleWindow) return static_cast<IOleInPlaceSite*>(this);
    return ComObject::Find(iid);
}

std::string ScriptedContainer::TakeLog() { return std::exchange(m_log, {}); }

HRESULT ScriptedContainer::Note(const std::string& call) {
    m_log += m_log.empty() ? call : " " + call;
    if (call == interferesWith) {
        interferesWith.clear();
        interference();
    }
    return call == refused ? E_FAIL : S_OK;
}

STDMETHODIMP ScriptedContainer::GetWindowContext(IOleInPlaceFrame** frame,
                                                 IOleInPlaceUIWindow** document, RECT* its,
                                                 RECT* visible, OLEINPLACEFRAMEINFO*) {
    *document = nullptr;
    *frame = nullptr;
    *its = place;
    *visible = clip;
    const HRESULT result = Note("GetWindowContext");
    if (SUCCEEDED(result)) {
        *frame = this;
        AddRef();
    }
    return result;
}

STDMETHODIMP ScriptedContainer::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                       VARIANT* result, EXCEPINFO*, UINT*) {
    if (flags & DISPATCH_METHOD) {
        if (arguments->cArgs == 1 && V_VT(arguments->rgvarg) == (VT_BYREF | VT_I2)) {
            return Note("Event" + std::to_string(id) + "(" +
                        std::to_string(*V_I2REF(arguments->rgvarg)) + ")");
        }
        return Note("Event" + std::to_string(id));
    }
    if (id != DISPID_AMBIENT_USERMODE || !userMode) return DISP_E_MEMBERNOTFOUND;
    V_VT(result) = VT_BOOL;
    V_BOOL(result) = *userMode;
    return S_OK;
}

}  // namespace velmora
