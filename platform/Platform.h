#pragma once

#include "platform/Dates.h"
#include "platform/Drawing.h"
#include "platform/Hosting.h"
#include "platform/Windowing.h"

namespace velmora {

/// What a host gives a control; all of it outlives the control.
struct Platform {
    Drawing& drawing;
    Windowing& windowing;
    Dates& dates;
    Hosting& hosting;
};

}  // namespace velmora
