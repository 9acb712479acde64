#include "hosts/activex/access/AccessObject.h"

#include "hosts/activex/win32/WinText.h"
#include "hosts/activex/win32/WinTexts.h"

#include <algorithm>
#include <new>
#include <utility>

namespace velmora {
namespace {

void SetNumber(VARIANT* value, std::size_t number) {
    V_VT(value) = VT_I4;
    V_I4(value) = static_cast<LONG>(number);
}

HRESULT GiveText(const std::string& text, BSTR* out) {
    if (text.empty()) return S_FALSE;
    const std::wstring wide = ToWide(text);
    *out = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    return *out ? S_OK : E_OUTOFMEMORY;
}

bool Contains(const Rect& rect, POINT at) {
    return rect.left <= at.x && at.x < rect.right && rect.top <= at.y && at.y < rect.bottom;
}

bool Overlap(int firstA, int lastA, int firstB, int lastB) {
    return firstA < lastB && firstB < lastA;
}

/// How far `to` lies from `from` in that direction; nothing when it does not lie there.
std::optional<int> Distance(const Rect& from, const Rect& to, long direction) {
    const bool isSideways = direction == NAVDIR_LEFT || direction == NAVDIR_RIGHT;
    const bool inLine = isSideways ? Overlap(from.top, from.bottom, to.top, to.bottom)
                                   : Overlap(from.left, from.right, to.left, to.right);
    int distance = 0;
    switch (direction) {
        case NAVDIR_LEFT: distance = from.left - to.left; break;
        case NAVDIR_RIGHT: distance = to.left - from.left; break;
        case NAVDIR_UP: distance = from.top - to.top; break;
        default: distance = to.top - from.top; break;
    }
    return inLine && distance > 0 ? std::optional(distance) : std::nullopt;
}

/// The part that is nearest in that direction; 0 for none.
std::size_t Neighbour(const std::vector<AccessItem>& items, std::size_t from, long direction) {
    std::size_t nearest = 0;
    std::optional<int> least;
    for (std::size_t i = 1; i < items.size(); ++i) {
        const auto distance = Distance(items[from].place, items[i].place, direction);
        if (!distance || (least && *least <= *distance)) continue;
        least = distance;
        nearest = i;
    }
    return nearest;
}

}  // namespace

/// Also for those in other processes, whose references end here.
void AccessObject::Disconnect() {
    m_access = nullptr;
    CoDisconnectObject(static_cast<IAccessible*>(this), 0);
}

void* AccessObject::Find(REFIID iid) {
    if (iid == __uuidof(IDispatch)) return static_cast<IDispatch*>(this);
    return ComObject::Find(iid);
}

template <class Read>
HRESULT AccessObject::Ask(Read read) {
    if (!m_access) return CO_E_OBJNOTCONNECTED;
    try {
        return read(m_access->Items());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

template <class Read>
HRESULT AccessObject::AskOf(const VARIANT& child, Read read) {
    return Ask([&](const Items& items) -> HRESULT {
        const auto number = static_cast<std::size_t>(V_I4(&child));
        if (V_VT(&child) != VT_I4 || number >= items.size()) return E_INVALIDARG;
        return read(items, number);
    });
}

/// The first part for which the question is answered by yes; nothing when there is none.
template <class Is>
HRESULT AccessObject::Answer(VARIANT* answer, Is is) {
    if (!answer) return E_POINTER;
    VariantInit(answer);
    return Ask([&](const Items& items) {
        const auto found = std::find_if(items.begin() + 1, items.end(), is);
        if (found == items.end()) return S_FALSE;
        SetNumber(answer, static_cast<std::size_t>(found - items.begin()));
        return S_OK;
    });
}

HRESULT AccessObject::TextOf(const VARIANT& child, std::string AccessItem::*text, BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return AskOf(child, [&](const Items& items, std::size_t item) {
        return GiveText(items[item].*text, out);
    });
}

HRESULT AccessObject::NoText(BSTR* out) const {
    if (!out) return E_POINTER;
    *out = nullptr;
    return m_access ? S_FALSE : CO_E_OBJNOTCONNECTED;
}

HRESULT AccessObject::ObjectOf(HWND window, LONG which, IDispatch** object) {
    return AccessibleObjectFromWindow(window, static_cast<DWORD>(which), __uuidof(IDispatch),
                                      reinterpret_cast<void**>(object));
}

STDMETHODIMP AccessObject::get_accParent(IDispatch** parent) {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return m_access ? ObjectOf(m_window, OBJID_WINDOW, parent) : CO_E_OBJNOTCONNECTED;
}

STDMETHODIMP AccessObject::get_accChildCount(long* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return Ask([&](const Items& items) {
        *count = static_cast<long>(items.size() - 1 + m_access->Windows().size());
        return S_OK;
    });
}

/// A part as a number, or the object of a window.
HRESULT AccessObject::Part(const Items& items, std::size_t number, VARIANT* part) {
    if (number < items.size()) {
        SetNumber(part, number);
        return S_OK;
    }
    const std::vector<HWND> windows = m_access->Windows();
    const std::size_t window = number - items.size();
    if (window >= windows.size()) return E_INVALIDARG;
    const HRESULT got = ObjectOf(windows[window], OBJID_CLIENT, &V_DISPATCH(part));
    if (SUCCEEDED(got)) V_VT(part) = VT_DISPATCH;
    return got;
}

STDMETHODIMP AccessObject::get_accChild(VARIANT child, IDispatch** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return Ask([&](const Items& items) -> HRESULT {
        if (V_VT(&child) != VT_I4 || V_I4(&child) <= CHILDID_SELF) return E_INVALIDARG;
        VARIANT part{};
        const HRESULT got = Part(items, static_cast<std::size_t>(V_I4(&child)), &part);
        if (FAILED(got) || V_VT(&part) != VT_DISPATCH) return FAILED(got) ? got : S_FALSE;
        *object = V_DISPATCH(&part);
        return S_OK;
    });
}

STDMETHODIMP AccessObject::get_accRole(VARIANT child, VARIANT* role) {
    if (!role) return E_POINTER;
    VariantInit(role);
    return AskOf(child, [&](const Items& items, std::size_t item) {
        SetNumber(role, static_cast<std::size_t>(items[item].role));
        return S_OK;
    });
}

long AccessObject::StateOf(const Items& items, std::size_t item) const {
    long state = items[item].state | (items.front().state & STATE_SYSTEM_UNAVAILABLE);
    if (!IsWindowVisible(m_window)) state |= STATE_SYSTEM_INVISIBLE;
    if (item == CHILDID_SELF && GetFocus() == m_window) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

STDMETHODIMP AccessObject::get_accState(VARIANT child, VARIANT* state) {
    if (!state) return E_POINTER;
    VariantInit(state);
    return AskOf(child, [&](const Items& items, std::size_t item) {
        SetNumber(state, static_cast<std::size_t>(StateOf(items, item)));
        return S_OK;
    });
}

STDMETHODIMP AccessObject::get_accFocus(VARIANT* child) {
    if (!child) return E_POINTER;
    VariantInit(child);
    const HWND focus = GetFocus();
    if (!m_access) return CO_E_OBJNOTCONNECTED;
    if (focus != m_window) {
        if (!focus || !IsChild(m_window, focus)) return S_FALSE;
        const HRESULT got = ObjectOf(focus, OBJID_CLIENT, &V_DISPATCH(child));
        if (SUCCEEDED(got)) V_VT(child) = VT_DISPATCH;
        return got;
    }
    const HRESULT found = Answer(
        child, [](const AccessItem& item) { return (item.state & STATE_SYSTEM_FOCUSED) != 0; });
    if (found == S_FALSE) SetNumber(child, CHILDID_SELF);
    return FAILED(found) ? found : S_OK;
}

STDMETHODIMP AccessObject::get_accSelection(VARIANT* children) {
    return Answer(children,
                  [](const AccessItem& item) { return (item.state & STATE_SYSTEM_SELECTED) != 0; });
}

STDMETHODIMP AccessObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    if (!action) return E_POINTER;
    *action = nullptr;
    return AskOf(child, [&](const Items& items, std::size_t item) {
        return GiveText(items[item].action ? ForReaders(items[item].action) : "", action);
    });
}

/// By the window, whose messages may end the control.
HRESULT AccessObject::Act(const Items& items, std::size_t item) {
    if (!items[item].action) return DISP_E_MEMBERNOTFOUND;
    SendMessageW(m_window, WindowAccess::kAct, item, 0);
    return S_OK;
}

STDMETHODIMP AccessObject::accDoDefaultAction(VARIANT child) {
    return AskOf(child, [&](const Items& items, std::size_t item) { return Act(items, item); });
}

/// One part is selected, so it is neither added to others nor taken from them.
STDMETHODIMP AccessObject::accSelect(long flags, VARIANT child) {
    return AskOf(child, [&](const Items& items, std::size_t item) -> HRESULT {
        if ((flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) != 0) return E_INVALIDARG;
        if ((flags & SELFLAG_TAKESELECTION) != 0) {
            if ((items[item].state & STATE_SYSTEM_SELECTABLE) == 0) return DISP_E_MEMBERNOTFOUND;
        }
        if ((flags & SELFLAG_TAKEFOCUS) != 0) {
            if ((items.front().state & STATE_SYSTEM_FOCUSABLE) == 0) return DISP_E_MEMBERNOTFOUND;
            SetFocus(m_window);
        }
        return (flags & SELFLAG_TAKESELECTION) != 0 ? Act(items, item) : S_OK;
    });
}

STDMETHODIMP AccessObject::accLocation(long* left, long* top, long* width, long* height,
                                       VARIANT child) {
    if (!left || !top || !width || !height) return E_POINTER;
    *left = *top = *width = *height = 0;
    return AskOf(child, [&](const Items& items, std::size_t item) {
        const Rect& place = items[item].place;
        POINT at{place.left, place.top};
        ClientToScreen(m_window, &at);
        *left = at.x;
        *top = at.y;
        *width = place.Width();
        *height = place.Height();
        return S_OK;
    });
}

STDMETHODIMP AccessObject::accHitTest(long left, long top, VARIANT* child) {
    if (!child) return E_POINTER;
    VariantInit(child);
    return Ask([&](const Items& items) -> HRESULT {
        POINT at{left, top};
        ScreenToClient(m_window, &at);
        if (!Contains(items.front().place, at)) return S_FALSE;
        const std::vector<HWND> windows = m_access->Windows();
        const HWND window = ChildWindowFromPointEx(m_window, at, CWP_SKIPINVISIBLE);
        const auto inWindow = std::ranges::find(windows, window);
        if (inWindow != windows.end()) {
            const auto behind = static_cast<std::size_t>(inWindow - windows.begin());
            return Part(items, items.size() + behind, child);
        }
        std::size_t part = items.size() - 1;
        while (part > 0 && !Contains(items[part].place, at)) --part;
        return Part(items, part, child);
    });
}

STDMETHODIMP AccessObject::accNavigate(long direction, VARIANT start, VARIANT* end) {
    if (!end) return E_POINTER;
    VariantInit(end);
    return Ask([&](const Items& items) -> HRESULT {
        const std::size_t count = items.size() + m_access->Windows().size();
        const auto from = static_cast<std::size_t>(V_I4(&start));
        if (V_VT(&start) != VT_I4 || from >= count) return E_INVALIDARG;
        std::size_t to = 0;
        switch (direction) {
            case NAVDIR_FIRSTCHILD: to = from == CHILDID_SELF ? 1 : 0; break;
            case NAVDIR_LASTCHILD: to = from == CHILDID_SELF ? count - 1 : 0; break;
            case NAVDIR_NEXT: to = from == CHILDID_SELF ? 0 : from + 1; break;
            case NAVDIR_PREVIOUS: to = from == CHILDID_SELF ? 0 : from - 1; break;
            default:
                if (from != CHILDID_SELF && from < items.size()) {
                    to = Neighbour(items, from, direction);
                }
        }
        return 0 < to && to < count ? Part(items, to, end) : S_FALSE;
    });
}

STDMETHODIMP AccessObject::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_access ? m_window : nullptr;
    return m_access ? S_OK : CO_E_OBJNOTCONNECTED;
}

STDMETHODIMP AccessObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

}  // namespace velmora
