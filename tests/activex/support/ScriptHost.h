#pragma once

#include "apps/vmhost/EventSink.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct IActiveScript;

namespace velmora::vmhost {

/// An error that a script did not handle.
struct ScriptError {
    long number = 0;  // as the script's `Err.Number` would be
    int line = 0;     // of the text, from 1
    std::string source;
    std::string description;
};

class ScriptSite;

/// Runs VBScript text over objects that it knows by name; `Host.Echo value` adds a line. A sub
/// named `Name_Event` is called with the events of a followed object and may change by-reference
/// arguments.
class ScriptHost {
public:
    ScriptHost();
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    void AddObject(const std::string& name, IUnknown* object);
    /// Adds it and calls the subs of its events.
    void Follow(const std::string& name, IUnknown* control);
    /// False when the text or a sub called meanwhile ended with an error.
    bool Run(std::string_view text);

    const std::vector<std::string>& Lines() const;
    const std::vector<ScriptError>& Errors() const;

private:
    void Deliver(const std::string& name, Event& event);

    ComPtr<ScriptSite> m_site;
    ComPtr<IActiveScript> m_engine;
    std::vector<ComPtr<EventSink>> m_sinks;
};

}  // namespace velmora::vmhost
