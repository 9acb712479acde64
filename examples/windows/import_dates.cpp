// A console program with a compiler that has #import:
//   cl /EHsc import_dates.cpp
// The component is registered, or lies beside the program with its manifest.
#import "VelmoraCalendar.tlb"

#include <iostream>

int main() {
    CoInitialize(nullptr);
    try {
        VelmoraCalendar::_VmCalendarPtr calendar(__uuidof(VelmoraCalendar::VmCalendar));
        calendar->FirstDayOfWeek = VelmoraCalendar::VmMonday;
        calendar->DateValue = L"2024-02-10";
        std::cout << calendar->Days->Count << " days\n";
        calendar->MonthBackColor = 0x01000000;  // refused
    } catch (const _com_error& error) {
        std::wcout << L"error " << (error.Error() & 0xFFFF) << L": "
                   << static_cast<const wchar_t*>(error.Description()) << L'\n';
    }
    CoUninitialize();
    return 0;
}
