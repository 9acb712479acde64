#include "fuzz/QtSetup.h"

#include <QApplication>

namespace velmora::fuzz {

void NeedApplication() {
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(count, arguments);  // ends with the program, as some of Qt's own needs it
}

}  // namespace velmora::fuzz

/// Read by the leak sanitizer. Fontconfig keeps what it has found out about odd font sizes without
/// a pointer to it, some bytes for each process.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
