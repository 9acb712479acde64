#pragma once

#include <ole2.h>
#include <windows.h>

#include <span>
#include <vector>

namespace velmora {

/// What is fixed about a class of controls.
struct ControlClass {
    const CLSID& clsid;
    const IID& dispatch;    // its default interface
    const IID& events;      // its default source interface
    const wchar_t* progId;  // of this version
    const wchar_t* versionIndependentProgId;
    const wchar_t* userType;
    DWORD miscStatus;
    SIZE defaultPixels;  // at 96 pixels an inch
    int toolboxBitmap;   // number of the resource
    std::span<const CLSID* const> pages;
};

/// What a container's menu offers for a control.
struct ControlVerb {
    LONG number;
    const wchar_t* name;
    DWORD attributes;  // OLEVERBATTRIB
};
inline constexpr LONG kVerbProperties = 1;  // as well as OLEIVERB_PROPERTIES
inline constexpr ControlVerb kControlVerbs[] = {
    {OLEIVERB_PRIMARY, L"&Edit", OLEVERBATTRIB_ONCONTAINERMENU | OLEVERBATTRIB_NEVERDIRTIES},
    {kVerbProperties, L"&Properties...", OLEVERBATTRIB_ONCONTAINERMENU}};

extern const ControlClass kCalendarClass;
extern const ControlClass kDropDownClass;

/// The property pages, `GeneralPP`, `DayPP`, `DropDownPP` and `LookPP`.
extern const CLSID kGeneralPage;
extern const CLSID kDayPage;
extern const CLSID kDropDownPage;
extern const CLSID kLookPage;

/// The pages for a control of the class: its own, and the system's for colours, fonts and pictures.
/// The system may have those for one bitness of programs only, or not at all: `kLookPage` takes the
/// place of the first two.
std::vector<CLSID> PagesOf(const ControlClass& controlClass);

}  // namespace velmora
