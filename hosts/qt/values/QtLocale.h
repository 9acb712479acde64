#pragma once

#include "platform/dates/DateLocale.h"

#include <memory>

class QLocale;

namespace velmora {

/// What dates look like in that locale. Shared by all that ask for the same one; belongs to the
/// user-interface thread.
std::shared_ptr<const DateLocale> DateLocaleOf(const QLocale& locale);

}  // namespace velmora
