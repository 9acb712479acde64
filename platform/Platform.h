#pragma once

#include "platform/Drawing.h"
#include "platform/Hosting.h"
#include "platform/Windowing.h"
#include "platform/dates/Dates.h"

namespace velmora {

/// What a host gives a control; all of it outlives the control.
struct Platform {
    Drawing& drawing;
    Windowing& windowing;
    Dates& dates;
    Hosting& hosting;
};

}  // namespace velmora
