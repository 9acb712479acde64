#include "ObjectsTest.h"

#include <random>

namespace velmora {
namespace {

/// What a control has been set to, to be found again after it has been stored.
void Decorate(::_VmCalendar& calendar) {
    EXPECT_EQ(calendar.put_DateValue(Real(43905, VT_DATE)), S_OK);
    EXPECT_EQ(calendar.put_MonthBackColor(0x80000011), S_OK);
    ComPtr<IFontDisp> font;
    calendar.get_MonthFont(&font);
    Query<IFont>(font.Get())->put_Bold(TRUE);
    const auto objects = std::make_shared<ControlObjects>();
    const auto image = std::make_shared<PixelImage>(
        PixelImage{16, 16, std::vector<std::uint32_t>(256, 0xFF00FF00)});
    ComPtr<IPictureDisp> icon;
    objects->ToClient(std::make_shared<StdPicture>(PictureType::Icon, Size{423, 423}, image))
        .As(&icon);
    EXPECT_EQ(calendar.put_MouseIcon(icon.Get()), S_OK);
}

ComPtr<IStream> StreamOf(const std::string& bytes) {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return stream;
}

template <class Interface>
std::string SavedStream(Interface& control) {
    const auto stream = StreamOf({});
    EXPECT_EQ(Query<IPersistStreamInit>(&control)->Save(stream.Get(), TRUE), S_OK);
    STATSTG status{};
    stream->Stat(&status, STATFLAG_NONAME);
    std::string bytes(static_cast<std::size_t>(status.cbSize.QuadPart), '\0');
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

void ExpectDecorated(::_VmCalendar& calendar) {
    const std::string saved = SavedStream(calendar);
    for (const char* const line :
         {"DateValue = date 43905\n", "MonthBackColor = int32 -2147483631\n", " bold\n",
          "MouseIcon = picture icon 423 423 "}) {
        EXPECT_NE(saved.find(line), std::string::npos) << line;
    }
}

TEST(Storing, EachWayGivesBackWhatItWasGiven) {
    const auto calendar = NewCalendar();
    Decorate(*calendar.Get());

    const std::string bytes = SavedStream(*calendar.Get());
    const auto two = StreamOf(bytes + bytes);
    for (int i = 0; i < 2; ++i) {
        const auto fromStream = NewCalendar();
        EXPECT_EQ(Query<IPersistStreamInit>(fromStream.Get())->Load(two.Get()), S_OK);
        ExpectDecorated(*fromStream.Get());
        EXPECT_EQ(SavedStream(*fromStream.Get()), bytes) << "the same values, the same bytes";
    }

    const ComPtr<TestBag> bag = Adopt(new TestBag);
    EXPECT_EQ(Query<IPersistPropertyBag>(calendar.Get())->Save(bag.Get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(V_VT(&bag->values[L"MonthBackColor"]), VT_I4);
    EXPECT_EQ(V_VT(&bag->values[L"DateValue"]), VT_DATE);
    EXPECT_EQ(bag->values.count(L"SelectedDayBackColor"), 0u) << "a default is not stored";
    const auto byScript = NewCalendar();
    VARIANT object;
    V_VT(&object) = VT_UNKNOWN;
    V_UNKNOWN(&object) = bag.Get();
    EXPECT_EQ(byScript->ReadProps(object), S_OK);
    ExpectDecorated(*byScript.Get());
    EXPECT_EQ(byScript->WriteProps(Number(1)), HresultOf(ErrorNumber::TypeMismatch));

    const auto copied = NewCalendar();
    EXPECT_EQ(copied->SetProps(nullptr), HresultOf(ErrorNumber::TypeMismatch));
    EXPECT_EQ(copied->SetProps(calendar.Get()), S_OK);
    ExpectDecorated(*copied.Get());
}

/// A bag of texts, as a web page has.
TEST(Storing, ABagOfTextsIsUnderstood) {
    const ComPtr<TestBag> bag = Adopt(new TestBag);
    for (const auto& [name, text] : {std::pair{L"ShowWeekend", L"False"},
                                     {L"MonthBackColor", L"255"},
                                     {L"DateValue", L"43905"},
                                     {L"DayAppearance", L"none"}}) {
        V_VT(&bag->values[name]) = VT_BSTR;
        V_BSTR(&bag->values[name]) = SysAllocString(text);
    }
    const auto calendar = NewCalendar();
    EXPECT_EQ(Query<IPersistPropertyBag>(calendar.Get())->Load(bag.Get(), nullptr), S_OK);
    VARIANT_BOOL weekend = VARIANT_TRUE;
    ::OLE_COLOR color = 0;
    ::VmAppearanceConstants appearance{};
    calendar->get_ShowWeekend(&weekend);
    calendar->get_MonthBackColor(&color);
    calendar->get_DayAppearance(&appearance);
    EXPECT_EQ(weekend, VARIANT_FALSE);
    EXPECT_EQ(color, 255u);
    EXPECT_EQ(appearance, 1) << "the default";
}

/// A value of any type; `object` is one that no property takes.
void Randomize(VARIANT& value, std::minstd_rand& random, IUnknown* object) {
    constexpr VARTYPE kTypes[] = {
        VT_EMPTY, VT_NULL, VT_I1,      VT_UI1,     VT_I2,       VT_UI2,
        VT_I4,    VT_UI4,  VT_INT,     VT_UINT,    VT_I8,       VT_UI8,
        VT_R4,    VT_R8,   VT_CY,      VT_DATE,    VT_BOOL,     VT_ERROR,
        VT_BSTR,  VT_BSTR, VT_DECIMAL, VT_UNKNOWN, VT_DISPATCH, VT_ARRAY | VT_VARIANT};
    VariantClear(&value);
    std::uint64_t bits = 0;
    for (int i = 0; i < 4; ++i) bits = bits << 16 | (random() & 0xFFFF);
    V_UI8(&value) = random() % 2 == 0 ? bits % 9 : bits;
    V_VT(&value) = kTypes[random() % std::size(kTypes)];
    switch (V_VT(&value)) {
        case VT_BSTR: {
            const std::wstring texts[] = {L"",
                                          L"5",
                                          L"-1e400",
                                          L"nan",
                                          L"2024-05-17",
                                          L"True",
                                          std::wstring(random() % 3000, L'\xD800')};
            V_BSTR(&value) =
                random() % 9 == 0 ? nullptr : SysAllocString(texts[random() % 7].c_str());
            break;
        }
        case VT_UNKNOWN:
        case VT_DISPATCH:
            V_UNKNOWN(&value) = nullptr;
            if (random() % 2 == 0) object->QueryInterface(IID_PPV_ARGS(&V_DISPATCH(&value)));
            break;
        case VT_ARRAY | VT_VARIANT:
            V_ARRAY(&value) = SafeArrayCreateVector(VT_VARIANT, 0, random() % 3);
            break;
        default: break;
    }
}

/// Has a value of some type under every name.
class RandomBag final : public ComObject<IPropertyBag> {
public:
    explicit RandomBag(IUnknown* object) : m_object(object) {}

    STDMETHODIMP Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
        Randomize(*value, m_random, m_object.Get());
        return m_random() % 8 == 0 ? E_INVALIDARG : S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) override { return S_OK; }

private:
    ComPtr<IUnknown> m_object;
    std::minstd_rand m_random{20240517};
};

TEST(Storing, ValuesOfEveryTypeDoNoHarm) {
    const auto calendar = NewCalendar();
    const auto box = NewBox();
    const auto bag = Adopt(new RandomBag(NewCalendar().Get()));
    IDispatch* const controls[] = {calendar.Get(), box.Get()};
    for (IDispatch* const control : controls) {
        for (int i = 0; i < 1000; ++i) {
            EXPECT_EQ(Query<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr), S_OK) << i;
            const auto saved = StreamOf(SavedStream(*control));
            EXPECT_EQ(Query<IPersistStreamInit>(control)->Load(saved.Get()), S_OK) << i;
        }
    }
}

/// Whatever it makes of them, the control goes on.
TEST(Storing, DamagedBytesDoNoHarm) {
    const auto box = NewBox();
    const std::string bytes = SavedStream(*box.Get());
    for (std::size_t i = 4; i < bytes.size(); ++i) {
        std::string damaged = bytes;
        damaged[i] = static_cast<char>(damaged[i] ^ (1 << i % 8));
        const auto loaded = NewBox();
        Query<IPersistStreamInit>(loaded.Get())->Load(StreamOf(damaged).Get());
        OwnedVariant date;
        EXPECT_EQ(loaded->get_DateValue(&date), S_OK);
    }
    const std::string huge = "\xFF\xFF\xFF\xFF" + bytes.substr(4);
    const auto loaded = NewBox();
    EXPECT_HRESULT_FAILED(Query<IPersistStreamInit>(loaded.Get())->Load(StreamOf(huge).Get()));
}

}  // namespace
}  // namespace velmora
