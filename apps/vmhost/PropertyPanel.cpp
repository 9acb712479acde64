#include "apps/vmhost/PropertyPanel.h"

#include "apps/vmhost/Ambients.h"
#include "apps/vmhost/ChildWindow.h"
#include "hosts/activex/win32/WinText.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>

namespace velmora::vmhost {
namespace {

constexpr int kListId = 200;
constexpr int kEditId = 201;
constexpr int kSetId = 202;

LONG Line() { return Scaled(24); }
LONG ButtonWidth() { return Scaled(50); }

bool IsColor(const PropertyInfo& property) { return property.name.ends_with("Color"); }

std::string ColorText(const Value& value) {
    char text[16];
    std::snprintf(text, sizeof text, "&H%08lX", static_cast<unsigned long>(value.Number()));
    return text;
}

std::string ObjectKind(IUnknown* object) {
    if (!object) return "Nothing";
    ComPtr<IFont> font;
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(font.GetAddressOf())))) {
        return GetProperty(object, "Name").result.Text() + ", " +
               GetProperty(object, "Size").result.Text();
    }
    ComPtr<IPicture> picture;
    return SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(picture.GetAddressOf()))) ? "(picture)"
                                                                                   : "(object)";
}

Value PictureFrom(const std::string& path) {
    ComPtr<IPictureDisp> picture;
    std::wstring wide = ToWide(path);
    OleLoadPicturePath(wide.data(), nullptr, 0, 0, IID_IPictureDisp,
                       reinterpret_cast<void**>(picture.GetAddressOf()));
    return Value(picture.Get());
}

void SetText(HWND window, const std::string& text) { SetWindowTextW(window, ToWide(text).c_str()); }

}  // namespace

std::string ShownText(const PropertyInfo& property, const Value& value) {
    switch (value.Type()) {
        case VT_DISPATCH:
        case VT_UNKNOWN: return ObjectKind(value.Object());
        case VT_DATE: return Readable(value.Get());
        default: return IsColor(property) ? ColorText(value) : value.Text();
    }
}

Value TypedValue(const std::string& text, const Value& present) {
    if (present.Type() != VT_DISPATCH && present.Type() != VT_UNKNOWN) return Value(text);
    if (text.empty() || text == "Nothing") return Value(static_cast<IDispatch*>(nullptr));
    const std::size_t comma = text.rfind(',');
    const bool isFont = present.Object() && comma != std::string::npos;
    if (!isFont) return PictureFrom(text);
    const int points = static_cast<int>(Value(text.substr(comma + 1)).Real());
    return Value(MakeFont(text.substr(0, comma), points).Get());
}

PropertyPanel::PropertyPanel(HWND parent, const RECT& place)
    : m_list(MakeChild(parent, WC_LISTVIEWW, L"",
                       WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                       {place.left, place.top, place.right, place.bottom - 2 * Line()}, kListId)),
      m_edit(MakeChild(parent, L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                       {place.left, place.bottom - 2 * Line() + 2, place.right - ButtonWidth(),
                        place.bottom - Line()},
                       kEditId)),
      m_set(MakeChild(parent, L"BUTTON", L"&Set", WS_TABSTOP,
                      {place.right - ButtonWidth(), place.bottom - 2 * Line() + 2, place.right,
                       place.bottom - Line()},
                      kSetId)),
      m_message(MakeChild(parent, L"STATIC", L"", SS_LEFTNOWORDWRAP,
                          {place.left, place.bottom - Line() + 4, place.right, place.bottom}, 0)) {
    ListView_SetExtendedListViewStyle(m_list, LVS_EX_FULLROWSELECT);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    const int width = place.right - place.left, nameWidth = width * 4 / 9;
    column.cx = nameWidth;
    column.pszText = const_cast<wchar_t*>(L"Property");
    SendMessageW(m_list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    column.cx = width - nameWidth - GetSystemMetrics(SM_CXVSCROLL) - 4;
    column.pszText = const_cast<wchar_t*>(L"Value");
    SendMessageW(m_list, LVM_INSERTCOLUMNW, 1, reinterpret_cast<LPARAM>(&column));
}

void PropertyPanel::Show(IUnknown* control) {
    m_control = control;
    m_properties = PropertiesOf(control);
    m_selected = -1;
    SendMessageW(m_list, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t row = 0; row < m_properties.size(); ++row) {
        std::wstring name = ToWide(m_properties[row].name);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(row);
        item.pszText = name.data();
        SendMessageW(m_list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    Refresh();
    ShowSelected();
}

void PropertyPanel::Refresh() {
    for (std::size_t row = 0; row < m_properties.size(); ++row) {
        const Outcome got = GetProperty(m_control.Get(), m_properties[row].name);
        std::wstring text =
            ToWide(got.Succeeded() ? ShownText(m_properties[row], got.result) : got.Text());
        LVITEMW item{};
        item.iSubItem = 1;
        item.pszText = text.data();
        SendMessageW(m_list, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    }
}

void PropertyPanel::OnNotify(const NMHDR& note) {
    if (note.hwndFrom != m_list || note.code != LVN_ITEMCHANGED) return;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(note);
    if (!(change.uNewState & LVIS_SELECTED)) return;
    m_selected = change.iItem;
    ShowSelected();
}

void PropertyPanel::ShowSelected() {
    SetText(m_message, "");
    const bool any = m_selected >= 0 && m_selected < static_cast<int>(m_properties.size());
    const bool writable = any && m_properties[static_cast<std::size_t>(m_selected)].writable;
    EnableWindow(m_edit, writable);
    EnableWindow(m_set, writable);
    if (!any) return SetText(m_edit, "");
    const PropertyInfo& property = m_properties[static_cast<std::size_t>(m_selected)];
    SetText(m_edit, ShownText(property, GetProperty(m_control.Get(), property.name).result));
}

bool PropertyPanel::OnCommand(int id) {
    if (id != kSetId && !(id == IDOK && GetFocus() == m_edit)) return false;
    Put();
    return true;
}

void PropertyPanel::Put() {
    if (m_selected < 0) return;
    const std::string name = m_properties[static_cast<std::size_t>(m_selected)].name;
    wchar_t text[1024];
    GetWindowTextW(m_edit, text, 1024);
    const Value present = GetProperty(m_control.Get(), name).result;
    const Outcome outcome = PutProperty(m_control.Get(), name, TypedValue(ToUtf8(text), present));
    SetText(m_message, outcome.Text());
    Refresh();
}

}  // namespace velmora::vmhost
