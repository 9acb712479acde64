#include "ObjectsTest.h"
#include "platform/AutomationError.h"

#include <limits>

namespace velmora {
namespace {

struct Case {
    const char* what;
    std::function<void(VARIANT&)> make;
    Variant expected;
};

bool Refuses(const VARIANT& value, ErrorNumber number) {
    const auto objects = std::make_shared<ControlObjects>();
    try {
        FromComVariant(value, *objects);
    } catch (const AutomationError& error) {
        return error.Number() == number;
    }
    return false;
}

TEST(ComVariant, EveryTypeOfAClientBecomesOneOfTheCore) {
    static LONG referred = -7;
    const Case cases[] = {
        {"empty", [](VARIANT&) {}, Variant()},
        {"null", [](VARIANT& v) { V_VT(&v) = VT_NULL; }, Null()},
        {"i1", [](VARIANT& v) { V_VT(&v) = VT_I1, V_I1(&v) = -3; }, std::int16_t{-3}},
        {"ui1", [](VARIANT& v) { V_VT(&v) = VT_UI1, V_UI1(&v) = 200; }, std::int16_t{200}},
        {"i2", [](VARIANT& v) { V_VT(&v) = VT_I2, V_I2(&v) = -3; }, std::int16_t{-3}},
        {"ui2", [](VARIANT& v) { V_VT(&v) = VT_UI2, V_UI2(&v) = 65535; }, 65535},
        {"i4", [](VARIANT& v) { V_VT(&v) = VT_I4, V_I4(&v) = -5; }, -5},
        {"colour bits", [](VARIANT& v) { V_VT(&v) = VT_UI4, V_UI4(&v) = 0x8000000F; },
         std::int32_t(-2147483633)},
        {"i8", [](VARIANT& v) { V_VT(&v) = VT_I8, V_I8(&v) = 2147483647; }, 2147483647},
        {"r4", [](VARIANT& v) { V_VT(&v) = VT_R4, V_R4(&v) = 1.5F; }, 1.5},
        {"currency", [](VARIANT& v) { V_VT(&v) = VT_CY, V_CY(&v).int64 = 25000; }, 2.5},
        {"date", [](VARIANT& v) { V_VT(&v) = VT_DATE, V_DATE(&v) = 43905.5; }, Date(43905.5)},
        {"text", [](VARIANT& v) { V_VT(&v) = VT_BSTR, V_BSTR(&v) = SysAllocString(L"\u00e4"); },
         "\xc3\xa4"},
        {"no text", [](VARIANT& v) { V_VT(&v) = VT_BSTR, V_BSTR(&v) = nullptr; }, ""},
        {"boolean", [](VARIANT& v) { V_VT(&v) = VT_BOOL, V_BOOL(&v) = VARIANT_TRUE; }, true},
        {"missing", [](VARIANT& v) { V_VT(&v) = VT_ERROR, V_ERROR(&v) = DISP_E_PARAMNOTFOUND; },
         Variant()},
        {"nothing", [](VARIANT& v) { V_VT(&v) = VT_DISPATCH, V_DISPATCH(&v) = nullptr; },
         ObjectRef()},
        {"reference", [](VARIANT& v) { V_VT(&v) = VT_BYREF | VT_I4, V_I4REF(&v) = &referred; }, -7},
    };
    const auto objects = std::make_shared<ControlObjects>();
    for (const Case& test : cases) {
        OwnedVariant value;
        test.make(value);
        EXPECT_EQ(FromComVariant(value, *objects), test.expected) << test.what;
    }
}

TEST(ComVariant, WhatTheCoreHasNoTypeForIsRefused) {
    OwnedVariant value;
    V_VT(&value) = VT_ERROR;
    V_ERROR(&value) = E_FAIL;
    EXPECT_TRUE(Refuses(value, ErrorNumber::TypeMismatch));
    V_VT(&value) = VT_I8;
    V_I8(&value) = std::numeric_limits<LONGLONG>::min();
    EXPECT_TRUE(Refuses(value, ErrorNumber::Overflow));
    V_VT(&value) = VT_ARRAY | VT_I4;
    V_ARRAY(&value) = SafeArrayCreateVector(VT_I4, 0, 2);
    EXPECT_TRUE(Refuses(value, ErrorNumber::TypeMismatch));
}

TEST(ComVariant, EveryTypeOfTheCoreComesBack) {
    const auto objects = std::make_shared<ControlObjects>();
    const auto font = std::make_shared<StdFont>();
    font->name = "Tahoma";
    for (const Variant& value :
         {Variant(), Variant(Null()), Variant(std::int16_t{-1}), Variant(0x00FFFF00), Variant(0.25),
          Variant(Date(-1.25)), Variant("a\xe2\x82\xac"), Variant(false), Variant(ObjectRef()),
          Variant(ObjectRef(font)), Variant(ObjectRef(MakeDataObject()))}) {
        OwnedVariant out;
        ToComVariant(value, *objects, out);
        EXPECT_EQ(V_VT(&out), static_cast<VARTYPE>(value.Type()));
        EXPECT_EQ(FromComVariant(out, *objects), value);
    }
}

}  // namespace
}  // namespace velmora
