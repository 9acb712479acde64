#pragma once

#include <string>

namespace velmora::vmhost {

/// What this process holds of the things that leak.
struct Census {
    int drawingObjects = 0;  // pens, brushes, fonts, bitmaps, surfaces, ...
    int heapBlocks = 0;
    int windows = 0;  // of this thread, children included

    static Census Take();
    std::string Text() const;
};

/// The visible windows of this thread that are nobody's children.
int VisibleWindows();
/// Whether a file of that name is loaded into this process.
bool IsModuleLoaded(const wchar_t* name);

}  // namespace velmora::vmhost
