#include "ObjectsTest.h"
#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/win32/WinText.h"

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace velmora {
namespace {

constexpr char kReleased[] = "../../hosts/activex/server/Identifiers.txt";

std::string ContentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Names with their values.
std::set<std::string> ConstantsIn(const std::string& text) {
    const std::regex constant(R"(Vm\w+ = \d+)");
    return {std::sregex_token_iterator(text.begin(), text.end(), constant), {}};
}

std::string NameOf(ITypeInfo& type, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    type.GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    std::string text = FromBstr(name);
    SysFreeString(name);
    return text;
}

template <class Visit>
void ForEachFunction(ITypeInfo& type, Visit visit) {
    FUNCDESC* function = nullptr;
    for (UINT i = 0; type.GetFuncDesc(i, &function) == S_OK; ++i) {
        visit(*function);
        type.ReleaseFuncDesc(function);
    }
}

/// The interface with a table of functions behind a dual one.
ComPtr<ITypeInfo> TableOf(ITypeInfo& type) {
    ComPtr<ITypeInfo> table = &type;
    HREFTYPE dual = 0;
    if (SUCCEEDED(type.GetRefTypeOfImplType(static_cast<UINT>(-1), &dual))) {
        type.GetRefTypeInfo(dual, &table);
    }
    return table;
}

/// One statement a line, without comments and help texts.
std::string Statements(std::string definition) {
    for (const auto& [pattern, text] :
         {std::pair(R"(//[^\n]*|#[^\n]*|,?\s*helpstring\(\s*"[^"]*"\))", ""),
          {R"(\s+)", " "},
          {R"( ?([;{}]) ?)", "$1\n"}}) {
        definition = std::regex_replace(definition, std::regex(pattern), text);
    }
    return definition;
}

TEST(TypeLibrary, NothingThatHasBeenReleasedMoves) {
    EXPECT_EQ(Statements(ContentOf(VELMORA_DEFINITION)), Statements(ContentOf(kReleased)))
        << "released, but changed; or new: append it to the record";
}

TEST(TypeLibrary, PublishesTheEnumerationsOfTheModel) {
    EXPECT_EQ(ConstantsIn(ContentOf(kReleased)),
              ConstantsIn(ContentOf("../../model/Enumerations.h")));
}

/// Calls every member that has a result with nowhere to put it; how many.
int CallWithoutResult(IDispatch* object, REFIID iid) {
    const auto table = TableOf(*OwnTypeInfo(iid).Get());
    int called = 0;
    ForEachFunction(*table.Get(), [&](const FUNCDESC& function) {
        const int count = function.cParams;
        if (count == 0 ||
            !(function.lprgelemdescParam[count - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) {
            return;
        }
        VARIANT zero{};
        V_VT(&zero) = VT_I8;
        VARTYPE types[] = {VT_I8, VT_I8};
        VARIANT* arguments[] = {&zero, &zero};
        VARIANT result{};
        ASSERT_EQ(DispCallFunc(object, static_cast<ULONG_PTR>(function.oVft), CC_STDCALL, VT_ERROR,
                               static_cast<UINT>(count), types, arguments, &result),
                  S_OK);
        EXPECT_EQ(V_ERROR(&result), E_POINTER) << NameOf(*table.Get(), function.memid);
        ++called;
    });
    return called;
}

TEST(TypeLibrary, EveryMemberRefusesANullResult) {
    const auto calendar = NewCalendar();
    ComPtr<::_VmDays> days;
    ComPtr<::_VmDay> day;
    calendar->get_Days(&days);
    days->get_Item(1, &day);
    const auto data = PublishData(MakeDataObject(), std::make_shared<ControlObjects>());
    EXPECT_GT(CallWithoutResult(calendar.Get(), __uuidof(::_VmCalendar)), 30);
    EXPECT_GT(CallWithoutResult(NewBox().Get(), __uuidof(::_VmCalDropDown)), 30);
    EXPECT_GT(CallWithoutResult(days.Get(), __uuidof(::_VmDays)), 3);
    EXPECT_GT(CallWithoutResult(day.Get(), __uuidof(::_VmDay)), 3);
    EXPECT_EQ(CallWithoutResult(data.Get(), __uuidof(::_VmDataObject)), 2);
}

}  // namespace
}  // namespace velmora
