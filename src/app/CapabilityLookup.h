#pragma once

#include "xml/Capabilities.h"

#include <QString>

// The capabilities of the model devName according to the capability list in
// capabilitiesFile. Every model key containing the looked-up name matches (blanks and
// underscores count as the same character); of several, the first is taken after a warning.
// A missing or unreadable list, or no match, gives every capability.
Capabilities lookupCapabilities(const QString& capabilitiesFile, const QString& devName);
