#include "tests/activex/support/ClientTest.h"

#include "tests/activex/support/Census.h"

namespace velmora::vmhost {

ClientTest::ClientTest() : form(Form::Open(nullptr, {0, 0, 500, 300}, "Client")) {}

ClientTest::~ClientTest() {
    form->Close();
    form.Reset();
    EXPECT_EQ(VisibleWindows(), 0);
}

ControlSite& ClientTest::Add(const char* classText, const std::string& name, const RECT& place,
                             const Saved& saved) {
    ControlSite& site = form->Add(classText, name, place, saved);
    site.onEvent = [this, name](Event& event) {
        if (event.Name() != "MouseMove") events.push_back(name + '.' + event.Text());
        if (const EventSink::Handler handler = onEvent) handler(event);
    };
    return site;
}

ControlSite& ClientTest::AddCalendar(const std::string& name) {
    return Add(kCalendarClass, name, kCalendarPlace);
}

ControlSite& ClientTest::AddBox(const std::string& name) { return Add(kBoxClass, name, kBoxPlace); }

void ClientTest::SetDate(ControlSite& site, int year, int month, int day) {
    const Outcome put =
        PutProperty(site.Control(), "DateValue", Value::Date(DayNumber(year, month, day)));
    EXPECT_TRUE(put.Succeeded()) << put.Text();
}

std::string ClientTest::DateOf(ControlSite& site) {
    return Got(GetProperty(site.Control(), "SelectedDay").result.Object(), "DayDate");
}

void ClientTest::FocusOn(ControlSite& site) {
    SetForegroundWindow(form->Window());
    site.Activate(OLEIVERB_UIACTIVATE);
    EXPECT_TRUE(Serve([&] { return site.IsUIActive(); }));
    UpdateWindow(site.ControlWindow());  // the first paint has an event of its own
    ServeWaiting(form.Get());
    TakeEvents();
}

std::vector<std::string> ClientTest::TakeEvents() { return std::exchange(events, {}); }

ComPtr<IPictureDisp> MakePicture(UINT type) {
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

double DayNumber(int year, int month, int day) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    double number = 0;
    SystemTimeToVariantTime(&time, &number);
    return number;
}

std::string Got(IUnknown* object, std::string_view property, std::vector<Value> arguments) {
    const Outcome outcome = GetProperty(object, property, std::move(arguments));
    return outcome.Succeeded() ? Readable(outcome.result.Get()) : "error " + outcome.Text();
}

}  // namespace velmora::vmhost
