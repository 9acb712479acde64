#include "apps/vmhost/FormFile.h"
#include "tests/activex/support/ComponentRows.h"

namespace velmora::vmhost {
namespace {

/// A container's bag that keeps what it is given.
class TestBag final : public ComObject<IPropertyBag> {
public:
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values.find(name);
        return found == values.end() ? E_INVALIDARG : found->second.CopyTo(*value);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        values[name] = Value::CopyOf(*value);
        return S_OK;
    }
    std::map<std::wstring, Value> values;
};

class Persistence : public ClientTest {
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

TEST_F(Persistence, FormsGoThroughFilesByEveryInterface) {
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
    }
    DeleteFileW(path.c_str());
}

TEST_F(Persistence, ScriptsCopyAndHaveBagsOfTheirOwn) {
    IUnknown* const source = AddChanged(kClasses[0]).Control();
    const std::string face = Faces()[0];
    const ComPtr<TestBag> bag = Adopt(new TestBag);
    Value holder;
    V_VT(&holder) = VT_UNKNOWN;
    bag.CopyTo(&V_UNKNOWN(&holder));
    EXPECT_EQ(CallMethod(source, "WriteProps", {holder}).Number(), 0);
    EXPECT_EQ(CallMethod(source, "WriteProps", {1}).Number(), 13);
    EXPECT_EQ(bag->values[L"MonthBackColor"].Type(), VT_I4);
    EXPECT_EQ(bag->values[L"DateValue"].Type(), VT_DATE);
    EXPECT_EQ(bag->values.count(L"NoRepaintControl"), 0u);
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
    for (const auto& [name, text] : {std::pair{L"ShowWeekend", "False"},
                                     {L"MonthBackColor", "255"},
                                     {L"DayAppearance", "?"}}) {
        bag->values[name] = text;
    }
    EXPECT_EQ(CallMethod(restored, "ReadProps", {holder}).Number(), 0);
    EXPECT_EQ(Got(restored, "ShowWeekend"), "False");
    EXPECT_EQ(Got(restored, "MonthBackColor"), "255");
    EXPECT_EQ(Got(restored, "DayAppearance"), "1") << "the default";
    ComPtr<IPersistPropertyBag> persist;
    AddCalendar().Control()->QueryInterface(IID_PPV_ARGS(persist.GetAddressOf()));
    for (const BOOL all : {FALSE, TRUE}) {
        bag->values.clear();
        EXPECT_EQ(persist->Save(bag.Get(), FALSE, all), S_OK);
        EXPECT_EQ(bag->values.count(L"DayNumberAlignment"), static_cast<std::size_t>(all));
    }
}

}  // namespace
}  // namespace velmora::vmhost
