#include "apps/vmhost/EventSink.h"

#include "hosts/activex/win32/WinText.h"

namespace velmora::vmhost {
namespace {

constexpr int kSourceFlags = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;

ComPtr<ITypeInfo> DefaultSourceOf(ITypeInfo& coclass) {
    ComPtr<ITypeInfo> source;
    TYPEATTR* attributes = nullptr;
    if (FAILED(coclass.GetTypeAttr(&attributes))) return source;
    const UINT count = attributes->cImplTypes;
    coclass.ReleaseTypeAttr(attributes);
    for (UINT index = 0; index < count; ++index) {
        int flags = 0;
        HREFTYPE reference = 0;
        if (FAILED(coclass.GetImplTypeFlags(index, &flags))) continue;
        if ((flags & kSourceFlags) != kSourceFlags) continue;
        if (FAILED(coclass.GetRefTypeOfImplType(index, &reference))) continue;
        coclass.GetRefTypeInfo(reference, source.GetAddressOf());
        break;
    }
    return source;
}

void Store(VARIANT& target, VARIANT& value) {
    switch (V_VT(&target) & VT_TYPEMASK) {
        case VT_I2:
        case VT_BOOL: *V_I2REF(&target) = V_I2(&value); break;
        case VT_I4: *V_I4REF(&target) = V_I4(&value); break;
        case VT_R4: *V_R4REF(&target) = V_R4(&value); break;
        case VT_R8:
        case VT_DATE: *V_R8REF(&target) = V_R8(&value); break;
        case VT_VARIANT: VariantCopy(V_VARIANTREF(&target), &value); break;
        default: break;
    }
}

}  // namespace

bool Event::Change(int index, const Value& value) const {
    VARIANT& target = Raw(index);
    if (!(V_VT(&target) & VT_BYREF)) return false;
    const VARTYPE type = V_VT(&target) & VT_TYPEMASK;
    Value converted = type == VT_VARIANT ? value : value.As(type);
    if (type != VT_VARIANT && converted.Type() != type) return false;
    Store(target, *&converted);
    return true;
}

std::string Event::Text() const {
    std::string text = m_name + '(';
    for (int index = 0; index < Count(); ++index) {
        if (index > 0) text += ", ";
        text += Readable(Raw(index));
    }
    return text + ')';
}

ComPtr<EventSink> EventSink::Connect(IUnknown* control, Handler handler) {
    ComPtr<EventSink> sink;
    sink = Adopt(new EventSink(std::move(handler)));
    ComPtr<IConnectionPointContainer> container;
    if (!sink->FindSource(control) ||
        FAILED(control->QueryInterface(IID_PPV_ARGS(container.GetAddressOf()))) ||
        FAILED(container->FindConnectionPoint(sink->m_source, sink->m_point.GetAddressOf())) ||
        FAILED(sink->m_point->Advise(sink.Get(), &sink->m_cookie))) {
        return nullptr;
    }
    return sink;
}

void EventSink::Disconnect() {
    const ComPtr<IConnectionPoint> point = std::move(m_point);
    m_handler = nullptr;
    if (point) point->Unadvise(m_cookie);
}

std::vector<std::string> EventSink::EventNames() const {
    std::vector<std::string> names;
    for (const auto& [id, name] : m_names) names.push_back(name);
    return names;
}

bool EventSink::FindSource(IUnknown* control) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> coclass;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(provider.GetAddressOf()))) ||
        FAILED(provider->GetClassInfo(coclass.GetAddressOf()))) {
        return false;
    }
    const ComPtr<ITypeInfo> source = DefaultSourceOf(*coclass.Get());
    if (!source) return false;
    ReadNames(*source.Get());

    ComPtr<IProvideClassInfo2> exact;
    if (SUCCEEDED(provider.As(&exact)) &&
        SUCCEEDED(exact->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &m_source))) {
        return true;
    }
    TYPEATTR* attributes = nullptr;
    if (FAILED(source->GetTypeAttr(&attributes))) return false;
    m_source = attributes->guid;
    source->ReleaseTypeAttr(attributes);
    return true;
}

void EventSink::ReadNames(ITypeInfo& source) {
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(source.GetFuncDesc(index, &function)); ++index) {
        BSTR name = nullptr;
        UINT count = 0;
        if (SUCCEEDED(source.GetNames(function->memid, &name, 1, &count)) && name) {
            m_names[function->memid] = ToUtf8(name);
            SysFreeString(name);
        }
        source.ReleaseFuncDesc(function);
    }
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                               EXCEPINFO*, UINT*) {
    if (!arguments) return E_POINTER;
    const auto name = m_names.find(id);
    if (name == m_names.end()) return DISP_E_MEMBERNOTFOUND;
    if (!m_handler) return S_OK;
    const ComPtr<EventSink> alive(this);
    const Handler handler = m_handler;  // it may disconnect this sink
    Event event(name->second, *arguments);
    handler(event);
    return S_OK;
}

}  // namespace velmora::vmhost
