#pragma once

#include "apps/vmhost/Automation.h"
#include "apps/vmhost/Form.h"
#include "platform/dates/Date.h"
#include "tests/activex/support/Census.h"

#include <gtest/gtest.h>

namespace velmora::vmhost {

inline constexpr char kCalendarClass[] = "VelmoraCalendar.VmCalendar";
inline constexpr char kBoxClass[] = "VelmoraCalendar.VmCalDropDown";
inline constexpr RECT kCalendarPlace{10, 10, 260, 210};  // 250 x 200
inline constexpr RECT kBoxPlace{280, 10, 401, 31};       // 121 x 21

/// A form on the screen's upper left for each case, and the events of what is put on it as
/// "Name.Event(arguments)".
class ClientTest : public testing::Test {
protected:
    ClientTest() : form(Form::Open(nullptr, {0, 0, 500, 300}, "Client")) {}
    ~ClientTest() override {
        form->Close();
        form.Reset();
        EXPECT_EQ(VisibleWindows(), 0);
    }

    ControlSite& Add(const char* classText, const std::string& name, const RECT& place,
                     const Saved& saved = {}) {
        ControlSite& site = form->Add(classText, name, place, saved);
        site.onEvent = [this, name](Event& event) {
            if (event.Name() != "MouseMove") events.push_back(name + '.' + event.Text());
            if (const EventSink::Handler handler = onEvent) handler(event);
        };
        return site;
    }
    ControlSite& AddCalendar(const std::string& name = "Calendar") {
        return Add(kCalendarClass, name, kCalendarPlace);
    }
    ControlSite& AddBox(const std::string& name = "Box") { return Add(kBoxClass, name, kBoxPlace); }
    static void SetDate(ControlSite& site, int year, int month, int day) {
        const Value date = Value::Date(DayFromCivil(year, month, day));
        EXPECT_TRUE(PutProperty(site.Control(), "DateValue", date).Succeeded());
    }
    /// Brings the form in front, the focus into the control, and lets it paint.
    void FocusOn(ControlSite& site) {
        SetForegroundWindow(form->Window());
        site.Activate(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(Serve([&] { return site.IsUIActive(); }));
        UpdateWindow(site.ControlWindow());  // the first paint has an event of its own
        ServeWaiting(form.Get());
        TakeEvents();
    }
    /// The events since the last call, without those of mouse moves.
    std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }
    bool Serve(const std::function<bool()>& condition, DWORD milliseconds = 3000) {
        return ServeUntil(form.Get(), condition, milliseconds);
    }

    ComPtr<Form> form;
    EventSink::Handler onEvent;  // after it has been noted
    std::vector<std::string> events;
};

/// A stored icon (`PICTYPE_ICON`) or a bitmap of its own (`PICTYPE_BITMAP`).
inline ComPtr<IPictureDisp> MakePicture(UINT type) {
    PICTDESC description{sizeof(description), type, {}};
    if (type == PICTYPE_ICON) {
        description.icon.hicon = LoadIconW(nullptr, IDI_APPLICATION);
    } else {
        description.bmp.hbitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    }
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, type == PICTYPE_BITMAP,
                             reinterpret_cast<void**>(picture.GetAddressOf()));
    return picture;
}

/// The value as text; what went wrong when it cannot be read.
inline std::string Got(IUnknown* object, std::string_view property,
                       std::vector<Value> arguments = {}) {
    const Outcome outcome = GetProperty(object, property, std::move(arguments));
    return outcome.Succeeded() ? Readable(outcome.result.Get()) : "error " + outcome.Text();
}

}  // namespace velmora::vmhost
