#pragma once

#include "apps/vmhost/Automation.h"
#include "hosts/activex/com/ComObject.h"

#include <ocidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmora::vmhost {

/// One event while it is being delivered.
class Event {
public:
    Event(std::string name, DISPPARAMS& arguments)
        : m_name(std::move(name)), m_arguments(arguments) {}

    const std::string& Name() const { return m_name; }
    int Count() const { return static_cast<int>(m_arguments.cArgs); }
    /// The `index`-th argument as written, from 0.
    Value Argument(int index) const { return Value::CopyOf(Raw(index)); }
    /// Stores through a by-reference argument, converted to its type; false when it is none.
    bool Change(int index, const Value& value) const;
    /// "DateChanged(2024-03-02)".
    std::string Text() const;
    const DISPPARAMS& Raw() const { return m_arguments; }

private:
    VARIANT& Raw(int index) const { return m_arguments.rgvarg[Count() - 1 - index]; }

    std::string m_name;
    DISPPARAMS& m_arguments;
};

/// Receives the events of a control's default source interface, which it finds by the control's
/// class information.
class EventSink : public ComObject<IDispatch> {
public:
    using Handler = std::function<void(Event&)>;

    /// Null when the control has no events.
    static ComPtr<EventSink> Connect(IUnknown* control, Handler handler);
    void Disconnect();
    /// In the order of their identifiers.
    std::vector<std::string> EventNames() const;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override;

protected:
    void* Find(REFIID id) override {
        return id == m_source ? static_cast<IDispatch*>(this) : ComObject::Find(id);
    }

private:
    explicit EventSink(Handler handler) : m_handler(std::move(handler)) {}
    bool FindSource(IUnknown* control);
    void ReadNames(ITypeInfo& source);

    Handler m_handler;
    GUID m_source = {};
    std::map<DISPID, std::string> m_names;
    ComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

}  // namespace velmora::vmhost
