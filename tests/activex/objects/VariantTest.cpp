#include "ObjectsTest.h"
#include "tests/support/Refusals.h"

#include <bit>
#include <limits>

namespace velmora {
namespace {

TEST(ComVariant, EveryTypeOfAClientBecomesOneOfTheCoreOrIsRefused) {
    static LONG referred = -7;
    const auto objects = std::make_shared<ControlObjects>();
    const auto bits = [](auto value) { return std::bit_cast<LONGLONG>(value); };
    const struct {
        VARTYPE type;
        LONGLONG value;  // the bits
        Variant expected;
        int refused = 0;
    } cases[] = {
        {VT_EMPTY, 0, Variant()},
        {VT_NULL, 0, Null()},
        {VT_I1, -3, std::int16_t{-3}},
        {VT_UI1, 200, std::int16_t{200}},
        {VT_I2, -3, std::int16_t{-3}},
        {VT_UI2, 65535, 65535},
        {VT_I4, -5, -5},
        {VT_INT, -5, -5},
        {VT_UI4, 0x8000000F, std::int32_t(-2147483633)},  // a colour
        {VT_I8, 2147483647, 2147483647},
        {VT_I8, 2147483648, Variant(), 6},
        {VT_I8, std::numeric_limits<LONGLONG>::min(), Variant(), 6},
        {VT_UI8, 2147483647, 2147483647},
        {VT_UI8, -1, Variant(), 6},
        {VT_R4, 0x3FC00000, 1.5},
        {VT_CY, 25000, 2.5},
        {VT_DATE, bits(43905.5), Date(43905.5)},
        {VT_BSTR, 0, ""},
        {VT_BOOL, VARIANT_TRUE, true},
        {VT_DISPATCH, 0, ObjectRef()},
        {VT_BYREF | VT_I4, bits(&referred), -7},
        {VT_ERROR, DISP_E_PARAMNOTFOUND, Variant()},  // a missing argument
        {VT_ERROR, E_FAIL, Variant(), 13},
        {VT_ARRAY | VT_I4, 0, Variant(), 13},
    };
    for (const auto& sample : cases) {
        VARIANT value{};
        V_VT(&value) = sample.type;
        V_I8(&value) = sample.value;
        Variant core;
        const auto take = [&] { core = FromComVariant(value, *objects); };
        EXPECT_EQ(static_cast<int>(test::NumberOf(take)), sample.refused) << sample.type;
        EXPECT_EQ(core, sample.expected) << sample.type;
    }
}

TEST(ComVariant, EveryTypeOfTheCoreComesBack) {
    const auto objects = std::make_shared<ControlObjects>();
    const auto font = std::make_shared<StdFont>();
    font->name = "Tahoma";
    for (const Variant& value :
         {Variant(), Variant(Null()), Variant(std::int16_t{-1}), Variant(0x00FFFF00), Variant(0.25),
          Variant(Date(-1.25)), Variant("a\xe2\x82\xac"), Variant(false), Variant(ObjectRef()),
          Variant(ObjectRef(font)), Variant(ObjectRef(std::make_shared<HeldData>()))}) {
        OwnedVariant out;
        ToComVariant(value, *objects, out);
        EXPECT_EQ(V_VT(&out), static_cast<VARTYPE>(value.Type()));
        EXPECT_EQ(FromComVariant(out, *objects), value);
    }
}

}  // namespace
}  // namespace velmora
