#pragma once

#include <QApplication>

namespace velmora::fuzz {

/// The application of a target with widgets, off screen, as long as the program.
inline void NeedApplication() {
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(count, arguments);  // ends with the program, as some of Qt's own needs it
}

}  // namespace velmora::fuzz
