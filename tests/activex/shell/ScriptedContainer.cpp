#include "tests/activex/shell/ScriptedContainer.h"

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
    if (FAILED(result)) return result;
    *document = *frame = this;
    AddRef();
    AddRef();
    return result;
}

STDMETHODIMP ScriptedContainer::OnPosRectChange(LPCRECT its) {
    std::string text;
    for (const LONG edge : {its->left, its->top, its->right, its->bottom}) {
        text += (text.empty() ? "" : ",") + std::to_string(edge);
    }
    return Note("OnPosRectChange(" + text + ")");
}

STDMETHODIMP ScriptedContainer::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    const std::wstring name = *names;
    if (name != L"ScaleMode" && !scaleModes.contains(name)) return DISP_E_UNKNOWNNAME;
    *ids = name[0];  // ambient properties have negative ones
    if (name != L"ScaleMode") m_scaleMode = scaleModes[name];
    return S_OK;
}

STDMETHODIMP ScriptedContainer::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                       VARIANT* result, EXCEPINFO*, UINT*) {
    if (flags & DISPATCH_METHOD) {
        std::string text;
        for (UINT i = arguments->cArgs; i-- > 0;) {
            OwnedVariant value;
            VariantCopyInd(&value, &arguments->rgvarg[i]);
            if (V_VT(&value) == VT_DATE) V_VT(&value) = VT_R8;  // a number in every language
            VariantChangeType(&value, &value, VARIANT_NOVALUEPROP, VT_BSTR);
            text += (text.empty() ? "" : ",") + FromBstr(V_BSTR(&value));
        }
        return Note("Event" + std::to_string(id) + "(" + text + ")");
    }
    if (id == L'S') {
        V_VT(result) = VT_I2;
        V_I2(result) = m_scaleMode;
    } else if (id > 0) {
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = this;
        AddRef();
    } else {
        const auto found = ambients.find(id);
        return found == ambients.end() ? DISP_E_MEMBERNOTFOUND
                                       : VariantCopy(result, &found->second);
    }
    return S_OK;
}

}  // namespace velmora
