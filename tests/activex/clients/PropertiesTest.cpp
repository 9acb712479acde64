#include "apps/vmhost/FormFile.h"
#include "apps/vmhost/Persistence.h"
#include "hosts/activex/com/ComPicture.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/DayObjects.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/support/PropertyCases.h"

#include <VelmoraCalendarInterfaces.h>

#include <set>

namespace velmora::vmhost {
namespace {

using test::PropertyRow;

struct PublishedClass {
    const char* name;
    test::Rows rows;
};
constexpr PublishedClass kClasses[] = {{kCalendarClass, test::kCalendarRows},
                                       {kBoxClass, test::kBoxRows}};

/// A control as a client has it, with the core's values, fonts and pictures.
class Automated {
public:
    explicit Automated(ControlSite& site) : m_control(*Dispatch(site).Get(), *m_objects) {}

    Variant GetMember(std::string_view name) const {
        const Variant value = m_control.GetMember(name);
        if (value.Type() != VarType::Object) return value;
        const auto picture = std::dynamic_pointer_cast<StdPicture>(*value.As<ObjectRef>());
        return picture ? Variant(ObjectRef(WithPixels(picture))) : value;
    }
    void LetMember(std::string_view name, const Variant& value) {
        m_control.LetMember(name, value);
    }
    /// A box's with its time; a calendar's `DateValue` is a text in the user's form.
    velmora::Date SelectedDate() const {
        const Variant date = GetMember("DateValue");
        if (const auto* exact = date.As<velmora::Date>()) return *exact;
        const Value day = GetProperty(m_control.Client(), "SelectedDay").result;
        return velmora::Date(GetProperty(day.Object(), "DayDate").result.Real());
    }

private:
    static ComPtr<IDispatch> Dispatch(ControlSite& site) {
        ComPtr<IDispatch> dispatch;
        site.Control()->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf()));
        return dispatch;
    }

    std::shared_ptr<ControlObjects> m_objects = std::make_shared<ControlObjects>();
    ComAutomation m_control;
};

class Properties : public ClientTest {
protected:
    /// Nothing is left at its default that a container may save.
    ControlSite& AddChanged(const PublishedClass& published) {
        ControlSite& site = Add(published.name, "Changed", kCalendarPlace);
        Automated control(site);
        test::ChangeAll(control, published.rows);
        return site;
    }
    std::vector<std::string> Faces() const {
        std::vector<std::string> faces;
        for (const ComPtr<ControlSite>& site : form->Sites()) {
            faces.push_back(test::FaceOf(Automated(*site.Get()), kClasses[faces.size()].rows));
        }
        return faces;
    }
};

TEST_F(Properties, FollowTheTable) {
    form->ChangeAmbient(DISPID_AMBIENT_SCALEUNITS,
                        [](Ambients& ambients) { ambients.scaleUnits = "Pixel"; });
    for (const auto& [classText, rows] : kClasses) {
        for (const PropertyRow& row : rows) {
            // The system makes a text of any value, and fonts and icons of its own.
            if (row.kind == test::Kind::Format || row.form == test::Form::Object) continue;
            SCOPED_TRACE(std::string(classText) + '.' + std::string(row.name));
            ControlSite& site = Add(classText, "C", kCalendarPlace);
            Automated control(site);
            if (row.initial != test::kToday) {
                EXPECT_EQ(test::ReadBack(control, row), row.initial);
            }
            test::ExpectTakesAndRefuses(control, row, [](bool) {});
            form->Remove(site);
        }
    }
}

TEST_F(Properties, BesidesTheTableAreObjectsHandlesAndModes) {
    for (const auto& [classText, rows] : kClasses) {
        IUnknown* const control = Add(classText, classText, kCalendarPlace).Control();
        std::set<std::string> names;
        for (const PropertyInfo& property : PropertiesOf(control)) names.insert(property.name);
        for (const PropertyRow& row : rows) names.erase(std::string(row.name));
        std::set<std::string> others{"Days", "OLEDropMode", "SelectedDay", "hWnd"};
        if (classText == kCalendarClass) others.insert("cboMonthhwnd");
        EXPECT_EQ(names, others);
        for (const char* name : {"Days", "SelectedDay", "hWnd"}) {
            EXPECT_EQ(PutProperty(control, name, 1).Number(), 438) << name;
        }
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 2).Number(), 0);
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 3).Number(), 380);
        EXPECT_EQ(Got(control, "OLEDropMode"), "2");
    }
    events.clear();
    IUnknown* const box = AddBox("B").Control();
    EXPECT_EQ(CallMethod(box, "MouseDown", {1, 2, 3.0, 4.0}).Number(), 0);  // an event of its own
    EXPECT_EQ(TakeEvents(), std::vector<std::string>{"B.MouseDown(1, 2, 3, 4)"});
}

TEST_F(Properties, FormsGoThroughFilesByEveryInterface) {
    for (const PublishedClass& published : kClasses) AddChanged(published);
    const std::vector<std::string> faces = Faces();
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = folder + std::to_wstring(GetCurrentProcessId()) + L"-form.vmform";
    for (const Medium medium : {Medium::Stream, Medium::Storage, Medium::Bag, Medium::Stream}) {
        SaveForm(*form.Get(), path, medium);
        LoadForm(*form.Get(), path);
        ASSERT_EQ(form->Sites().size(), std::size(kClasses));
        EXPECT_EQ(Faces(), faces) << static_cast<int>(medium);
        EXPECT_TRUE(EqualRect(&form->Sites()[0]->Place(), &kCalendarPlace));
        EXPECT_EQ(form->Sites()[0]->ClassId(), __uuidof(::VmCalendar))
            << "what another process knows";
    }
    DeleteFileW(path.c_str());
}

TEST_F(Properties, ScriptsCopyAndHaveBagsOfTheirOwn) {
    IUnknown* const source = AddChanged(kClasses[0]).Control();
    const std::string face = Faces()[0];
    const ComPtr<TextBag> bag = Adopt(new TextBag), all = Adopt(new TextBag);
    Value holder;
    V_VT(&holder) = VT_UNKNOWN;
    bag.CopyTo(&V_UNKNOWN(&holder));
    EXPECT_EQ(CallMethod(source, "WriteProps", {holder}).Number(), 0);
    EXPECT_EQ(CallMethod(source, "WriteProps", {1}).Number(), 13);
    const auto has = [](const ComPtr<TextBag>& in, const char* line) {
        return ('\n' + in->Lines()).find(std::string(1, '\n') + line) != std::string::npos;
    };
    EXPECT_TRUE(has(bag, "MonthBackColor = 3:") && has(bag, "DateValue = 7:")) << "VT_I4, VT_DATE";
    EXPECT_FALSE(has(bag, "NoRepaintControl"));
    ControlSite& restoredSite = AddCalendar();
    IUnknown* const restored = restoredSite.Control();
    EXPECT_EQ(CallMethod(restored, "ReadProps", {holder}).Number(), 0);
    EXPECT_EQ(test::FaceOf(Automated(restoredSite), test::kCalendarRows), face);
    ControlSite& copySite = AddCalendar();
    IUnknown* const copy = copySite.Control();
    PutProperty(copy, "Enabled", false);  // which is not copied
    EXPECT_EQ(CallMethod(copy, "SetProps", {static_cast<IDispatch*>(nullptr)}).Number(), 13);
    ComPtr<IDispatch> dispatch;
    source->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf()));
    EXPECT_EQ(CallMethod(copy, "SetProps", {dispatch.Get()}).Number(), 0);
    EXPECT_EQ(test::FaceOf(Automated(copySite), test::kCalendarRows), face);
    // As the parameters of a web page come.
    for (const char* text :
         {"ShowWeekend = 8:False", "MonthBackColor = 8:255", "DayAppearance = 8:?"})
        bag->AddLine(text);
    EXPECT_EQ(CallMethod(restored, "ReadProps", {holder}).Number(), 0);
    EXPECT_EQ(Got(restored, "ShowWeekend"), "False");
    EXPECT_EQ(Got(restored, "MonthBackColor"), "255");
    EXPECT_EQ(Got(restored, "DayAppearance"), "1") << "the default";
    ComPtr<IPersistPropertyBag> persist;
    AddCalendar().Control()->QueryInterface(IID_PPV_ARGS(persist.GetAddressOf()));
    for (const BOOL isAll : {FALSE, TRUE}) {
        EXPECT_EQ(persist->Save(all.Get(), FALSE, isAll), S_OK);
        EXPECT_EQ(has(all, "DayNumberAlignment"), isAll != FALSE);
    }
}

}  // namespace
}  // namespace velmora::vmhost
