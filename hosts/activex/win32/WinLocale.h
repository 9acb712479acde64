#pragma once

#include "platform/dates/Date.h"
#include "platform/dates/DateLocale.h"

#include <windows.h>

#include <memory>

namespace velmora {

/// What dates look like in that locale, as the system and the user's settings say.
DateLocale SystemDateLocale(LCID locale = LOCALE_USER_DEFAULT);
/// The same, shared by all that ask for it at the same time; from any thread.
std::shared_ptr<const DateLocale> SharedDateLocale(LCID locale = LOCALE_USER_DEFAULT);

/// The present moment of the local clock, in whole seconds.
Date LocalNow();

}  // namespace velmora
