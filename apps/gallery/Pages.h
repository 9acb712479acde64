#pragma once

#include <QDate>
#include <QString>

#include <span>

class QWidget;

namespace velmora {

struct Page {
    const char* name;   // for the command line and the picture's file
    const char* title;  // for people
    /// A new page without a parent; its calendars have that date selected.
    QWidget* (*make)(QDate date);
};

/// In the order in which they are shown.
std::span<const Page> Pages();

/// The position of that name in `Pages`, or -1.
int PageIndex(const QString& name);

}  // namespace velmora
