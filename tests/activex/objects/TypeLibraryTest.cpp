#include "ObjectsTest.h"
#include "calendar/CalendarMembers.h"
#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/win32/WinText.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace velmora {
namespace {

using Lines = std::set<std::string>;

std::string ContentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::string TextOf(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return ToUtf8(text);
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
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type.GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    type.ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(type.GetFuncDesc(i, &function), S_OK);
        visit(*function);
        type.ReleaseFuncDesc(function);
    }
}

const char* KindOf(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET: return "get";
        case INVOKE_PROPERTYPUT: return "let";
        case INVOKE_PROPERTYPUTREF: return "set";
        default: return "call";
    }
}

void ListConstants(ITypeInfo& type, const std::string& name, UINT count, Lines& lines) {
    for (UINT i = 0; i < count; ++i) {
        VARDESC* constant = nullptr;
        ASSERT_EQ(type.GetVarDesc(i, &constant), S_OK);
        lines.insert(name + "." + NameOf(type, constant->memid) + " = " +
                     std::to_string(V_I4(constant->lpvarValue)));
        type.ReleaseVarDesc(constant);
    }
}

/// The VARTYPE of a parameter; "*" for each pointer to it.
std::string TypeOf(const TYPEDESC& type) {
    if (type.vt == VT_PTR) return TypeOf(*type.lptdesc) + "*";
    return std::to_string(type.vt);
}

std::string ParametersOf(const FUNCDESC& function) {
    std::string text = " (";
    for (SHORT i = 0; i < function.cParams; ++i) {
        text += (i ? " " : "") + TypeOf(function.lprgelemdescParam[i].tdesc);
    }
    return text + ")";
}

/// Everything that programs have compiled in: identifiers, members' ids, slots and parameters,
/// values.
Lines ListOf(ITypeInfo& type) {
    Lines lines;
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetTypeAttr(&attributes))) return lines;
    const std::string name = NameOf(type);
    lines.insert(name + " " + TextOf(attributes->guid));
    if (attributes->typekind == TKIND_ENUM) ListConstants(type, name, attributes->cVars, lines);
    const bool isEvents =
        attributes->typekind == TKIND_DISPATCH && !(attributes->wTypeFlags & TYPEFLAG_FDUAL);
    type.ReleaseTypeAttr(attributes);
    ComPtr<ITypeInfo> table = &type;
    HREFTYPE dual = 0;
    if (!isEvents && SUCCEEDED(type.GetRefTypeOfImplType(static_cast<UINT>(-1), &dual))) {
        type.GetRefTypeInfo(dual, &table);
    }
    ForEachFunction(*table.Get(), [&](const FUNCDESC& function) {
        if (function.wFuncFlags & FUNCFLAG_FRESTRICTED) return;  // of IDispatch itself
        std::string line = name + "." + NameOf(*table.Get(), function.memid) + " " +
                           KindOf(function.invkind) + " id " + std::to_string(function.memid);
        const auto slot = static_cast<std::size_t>(function.oVft) / sizeof(void*);
        if (!isEvents) line += " slot " + std::to_string(slot);
        lines.insert(line + ParametersOf(function));
    });
    return lines;
}

ComPtr<ITypeLib> Library() {
    ComPtr<ITypeLib> library;
    UINT index = 0;
    OwnTypeInfo(__uuidof(::_VmCalendar))->GetContainingTypeLib(&library, &index);
    return library;
}

Lines ListOfLibrary() {
    const auto library = Library();
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    Lines lines{"VelmoraCalendar " + TextOf(attributes->guid) + " version " +
                std::to_string(attributes->wMajorVerNum) + "." +
                std::to_string(attributes->wMinorVerNum)};
    library->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        library->GetTypeInfo(i, &type);
        lines.merge(ListOf(*type.Get()));
    }
    return lines;
}

std::string Difference(const Lines& from, const Lines& what) {
    std::string text;
    for (const std::string& line : from) {
        if (!what.contains(line)) text += line + "\n";
    }
    return text;
}

TEST(TypeLibrary, NothingThatHasBeenReleasedMoves) {
    std::istringstream file(ContentOf("../../hosts/activex/server/Identifiers.txt"));
    Lines released;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') released.insert(line);
    }
    const Lines present = ListOfLibrary();
    EXPECT_EQ(Difference(released, present), "") << "released, but gone or moved";
    EXPECT_EQ(Difference(present, released), "") << "new: append it to Identifiers.txt";
}

TEST(TypeLibrary, PublishesTheEnumerationsOfTheModel) {
    const std::string header = ContentOf("../../model/Enumerations.h");
    const std::regex enumeration(R"(enum (\w+) : std::int32_t \{([^}]*)\})");
    const std::regex constant(R"((\w+) = (\d+))");
    Lines values;
    int enumerations = 0;
    for (std::sregex_iterator e(header.begin(), header.end(), enumeration), end; e != end; ++e) {
        const std::string name = (*e)[1], body = (*e)[2];
        ++enumerations;
        for (std::sregex_iterator c(body.begin(), body.end(), constant); c != end; ++c) {
            values.insert(name + "." + (*c)[1].str() + " = " + (*c)[2].str());
        }
    }
    EXPECT_EQ(enumerations, 12);
    Lines published = ListOfLibrary();
    std::erase_if(published, [](const auto& line) { return line.find(" = ") == line.npos; });
    EXPECT_EQ(published, values);
}

/// The properties of an interface, as "Name get" and "Name let".
Lines PropertiesOf(REFIID iid) {
    const auto type = OwnTypeInfo(iid);
    Lines names;
    ForEachFunction(*type.Get(), [&](const FUNCDESC& function) {
        if (function.invkind == INVOKE_PROPERTYGET || function.invkind == INVOKE_PROPERTYPUT) {
            names.insert(NameOf(*type.Get(), function.memid) + " " + KindOf(function.invkind));
        }
    });
    return names;
}

template <class Core>
Lines PropertiesOfCore() {
    Lines names;
    for (const auto& member : CommonMembers<Core>()) {
        names.insert(std::string(member.name) + " get");
        if (member.let) names.insert(std::string(member.name) + " let");
    }
    return names;
}

TEST(TypeLibrary, PublishesThePropertiesOfTheCoreAndNoOthers) {
    Lines calendar = PropertiesOfCore<VmCalendar>();
    calendar.merge(Lines{"hWnd get", "cboMonthhwnd get", "NoRepaintControl let",
                         "NoResizeControl let", "AlwaysDateChanged let", "OLEDropMode get",
                         "OLEDropMode let"});
    EXPECT_EQ(PropertiesOf(__uuidof(::_VmCalendar)), calendar);

    Lines box = PropertiesOfCore<VmCalDropDown>();
    box.erase("Appearance get");
    box.erase("Appearance let");
    for (const char* own : {"DropDownAppearance", "DateFormat", "ComboFont", "DropDownAlignment",
                            "DropDownHeight", "DropDownWidth", "DropDownState", "OLEDropMode"}) {
        box.insert(std::string(own) + " get");
        box.insert(std::string(own) + " let");
    }
    box.merge(Lines{"hWnd get", "NoLostFocus let"});
    EXPECT_EQ(PropertiesOf(__uuidof(::_VmCalDropDown)), box);
}

/// Calls every member that has a result with nowhere to put it.
void CallWithoutResult(IDispatch* object, REFIID iid) {
    const auto dispatch = OwnTypeInfo(iid);
    HREFTYPE dual = 0;
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &dual), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeInfo(dual, &type), S_OK);
    int called = 0;
    ForEachFunction(*type.Get(), [&](const FUNCDESC& function) {
        const int count = function.cParams;
        if (count == 0 ||
            !(function.lprgelemdescParam[count - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL)) {
            return;
        }
        VARIANT zero;
        V_VT(&zero) = VT_I8;
        V_I8(&zero) = 0;
        VARTYPE types[] = {VT_I8, VT_I8};
        VARIANT* arguments[] = {&zero, &zero};
        VARIANT result;
        VariantInit(&result);
        ASSERT_LE(count, 2);
        ASSERT_EQ(DispCallFunc(object, static_cast<ULONG_PTR>(function.oVft), CC_STDCALL, VT_ERROR,
                               static_cast<UINT>(count), types, arguments, &result),
                  S_OK);
        EXPECT_EQ(V_ERROR(&result), E_POINTER) << NameOf(*type.Get(), function.memid);
        ++called;
    });
    EXPECT_GT(called, 1);
}

TEST(TypeLibrary, EveryMemberRefusesANullResult) {
    const auto calendar = NewCalendar();
    const auto box = NewBox();
    ComPtr<::_VmDays> days;
    ComPtr<::_VmDay> day;
    ASSERT_EQ(calendar->get_Days(&days), S_OK);
    ASSERT_EQ(days->get_Item(1, &day), S_OK);
    const auto data = PublishData(MakeDataObject(), std::make_shared<ControlObjects>());
    CallWithoutResult(calendar.Get(), __uuidof(::_VmCalendar));
    CallWithoutResult(box.Get(), __uuidof(::_VmCalDropDown));
    CallWithoutResult(days.Get(), __uuidof(::_VmDays));
    CallWithoutResult(day.Get(), __uuidof(::_VmDay));
    CallWithoutResult(data.Get(), __uuidof(::_VmDataObject));
}

}  // namespace
}  // namespace velmora
