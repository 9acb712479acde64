#include "tests/activex/support/ScriptHost.h"

#include "apps/vmhost/HostError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/win32/WinText.h"

#include <activscp.h>

#include <algorithm>

namespace velmora::vmhost {
namespace {

std::string TakeText(BSTR text) {
    const std::string result = text ? ToUtf8({text, SysStringLen(text)}) : std::string();
    SysFreeString(text);
    return result;
}

/// The script's `Host`, which has `Echo` only.
class Echo : public ComObject<IDispatch> {
public:
    explicit Echo(std::vector<std::string>& lines) : m_lines(lines) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        ids[0] = 1;
        return _wcsicmp(names[0], L"Echo") == 0 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        if (arguments->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        const Value value = Value::CopyOf(arguments->rgvarg[0]);
        m_lines.push_back(value.Type() == VT_BSTR ? value.Text() : Readable(value.Get()));
        return S_OK;
    }

private:
    std::vector<std::string>& m_lines;
};

}  // namespace

class ScriptSite : public ComObject<IActiveScriptSite> {
public:
    std::map<std::string, ComPtr<IUnknown>> objects;
    std::vector<std::string> lines;
    std::vector<ScriptError> errors;

    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** object,
                             ITypeInfo** type) override {
        const auto found = objects.find(ToUtf8(name));
        if (found == objects.end()) return TYPE_E_ELEMENTNOTFOUND;
        if (type) *type = nullptr;
        if (wanted & SCRIPTINFO_IUNKNOWN) found->second.CopyTo(object);
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO exception{};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&exception);
        error->GetSourcePosition(&context, &line, &column);
        Outcome outcome;
        outcome.code = exception.scode;
        errors.push_back({outcome.Number(), static_cast<int>(line) + 1,
                          TakeText(exception.bstrSource), TakeText(exception.bstrDescription)});
        SysFreeString(exception.bstrHelpFile);
        return S_OK;
    }
};

ScriptHost::ScriptHost() {
    CLSID classId{};
    Check(CLSIDFromProgID(L"VBScript", &classId), "finding VBScript");
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                           reinterpret_cast<void**>(m_engine.GetAddressOf())),
          "making the engine");
    m_site = Adopt(new ScriptSite);
    Check(m_engine->SetScriptSite(m_site.Get()), "placing the engine");
    ComPtr<IActiveScriptParse> parse;
    Check(m_engine.As(&parse), "asking for the parser");
    Check(parse->InitNew(), "preparing the engine");
    ComPtr<IDispatch> echo;
    echo = Adopt(new Echo(m_site->lines));
    AddObject("Host", echo.Get());
    Check(m_engine->SetScriptState(SCRIPTSTATE_CONNECTED), "starting the engine");
}

ScriptHost::~ScriptHost() {
    for (const ComPtr<EventSink>& sink : m_sinks) sink->Disconnect();
    m_engine->Close();
    m_site->objects.clear();
}

void ScriptHost::AddObject(const std::string& name, IUnknown* object) {
    m_site->objects[name] = object;
    Check(m_engine->AddNamedItem(ToWide(name).c_str(), SCRIPTITEM_ISVISIBLE), "naming " + name);
}

void ScriptHost::Follow(const std::string& name, IUnknown* control) {
    AddObject(name, control);
    ComPtr<EventSink> sink =
        EventSink::Connect(control, [this, name](Event& event) { Deliver(name, event); });
    if (!sink) throw HostError("following " + name, E_NOINTERFACE);
    m_sinks.push_back(sink);
}

bool ScriptHost::Run(std::string_view text) {
    const std::size_t before = m_site->errors.size();
    ComPtr<IActiveScriptParse> parse;
    Check(m_engine.As(&parse), "asking for the parser");
    const HRESULT code = parse->ParseScriptText(ToWide(text).c_str(), nullptr, nullptr, nullptr, 0,
                                                0, SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    return SUCCEEDED(code) && m_site->errors.size() == before;
}

const std::vector<std::string>& ScriptHost::Lines() const { return m_site->lines; }

const std::vector<ScriptError>& ScriptHost::Errors() const { return m_site->errors; }

void ScriptHost::Deliver(const std::string& name, Event& event) {
    ComPtr<IDispatch> script;
    DISPID id = DISPID_UNKNOWN;
    std::wstring sub = ToWide(name + '_' + event.Name());
    LPOLESTR names = sub.data();
    if (FAILED(m_engine->GetScriptDispatch(nullptr, script.GetAddressOf())) ||
        FAILED(script->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) {
        return;
    }
    // The engine writes back through references to variants only.
    const int count = event.Count();
    std::vector<Value> values;
    for (int index = 0; index < count; ++index) values.push_back(event.Argument(index));
    std::vector<VARIANT> references(values.size());
    for (std::size_t index = 0; index < values.size(); ++index) {
        VARIANT& reference = references[values.size() - 1 - index];
        V_VT(&reference) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&reference) = &values[index];
    }
    DISPPARAMS arguments{references.data(), nullptr, static_cast<UINT>(count), 0};
    Value result;
    script->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result, nullptr,
                   nullptr);
    for (int index = 0; index < count; ++index) {
        event.Change(index, values[static_cast<std::size_t>(index)]);
    }
}

}  // namespace velmora::vmhost
