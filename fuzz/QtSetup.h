#pragma once

namespace velmora::fuzz {

/// The application of a target with widgets, off screen, as long as the program.
void NeedApplication();

}  // namespace velmora::fuzz
