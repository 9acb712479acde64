#pragma once

#include "apps/vmhost/Form.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace velmora::vmhost {

inline constexpr char kCalendarClass[] = "VelmoraCalendar.VmCalendar";
inline constexpr char kBoxClass[] = "VelmoraCalendar.VmCalDropDown";
inline constexpr RECT kCalendarPlace{10, 10, 260, 210};  // 250 x 200
inline constexpr RECT kBoxPlace{280, 10, 401, 31};       // 121 x 21

/// A form on the screen's upper left for each case, and the events of what is put on it as
/// "Name.Event(arguments)".
class ClientTest : public testing::Test {
protected:
    ClientTest();
    ~ClientTest() override;

    ControlSite& Add(const char* classText, const std::string& name, const RECT& place,
                     const Saved& saved = {});
    ControlSite& AddCalendar(const std::string& name = "Calendar");
    ControlSite& AddBox(const std::string& name = "Box");
    void SetDate(ControlSite& site, int year, int month, int day);
    static std::string DateOf(ControlSite& site);  // the selected day's
    /// Brings the form in front, the focus into the control, and lets it paint.
    void FocusOn(ControlSite& site);
    /// The events since the last call, without those of mouse moves.
    std::vector<std::string> TakeEvents();
    bool Serve(const std::function<bool()>& condition, DWORD milliseconds = 3000) {
        return ServeUntil(form.Get(), condition, milliseconds);
    }

    ComPtr<Form> form;
    EventSink::Handler onEvent;  // after it has been noted
    std::vector<std::string> events;
};

/// A stored icon (`PICTYPE_ICON`) or a bitmap of its own (`PICTYPE_BITMAP`).
ComPtr<IPictureDisp> MakePicture(UINT type);

/// A date's number as scripts count: 2024-03-02 is 45353.
double DayNumber(int year, int month, int day);

/// The value as text; what went wrong when it cannot be read.
std::string Got(IUnknown* object, std::string_view property, std::vector<Value> arguments = {});

}  // namespace velmora::vmhost
