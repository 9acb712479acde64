#pragma once

#include "apps/vmhost/Automation.h"

#include <string>
#include <vector>

namespace velmora::vmhost {

/// A list of a control's properties with their values, and below it a line to edit the selected
/// one. A refused value stays in the line with the error beside it.
class PropertyPanel {
public:
    /// Child windows of `parent`, whose WM_COMMAND and WM_NOTIFY it is given.
    PropertyPanel(HWND parent, const RECT& place);

    /// Null: no control, an empty list.
    void Show(IUnknown* control);
    /// Reads all values again.
    void Refresh();
    void OnNotify(const NMHDR& note);
    bool OnCommand(int id);

private:
    void Put();
    void ShowSelected();

    HWND m_list;
    HWND m_edit;
    HWND m_set;
    HWND m_message;
    ComPtr<IUnknown> m_control;
    std::vector<PropertyInfo> m_properties;
    int m_selected = -1;
};

/// A value as it is shown and typed: fonts as "Tahoma, 8", colours as "&H8000000F", objects by
/// their kind.
std::string ShownText(const PropertyInfo& property, const Value& value);
/// What was typed, for a property whose present value is `present`: a font by its name and size, a
/// picture by its file, "Nothing", or the text for the control to convert.
Value TypedValue(const std::string& text, const Value& present);

}  // namespace velmora::vmhost
