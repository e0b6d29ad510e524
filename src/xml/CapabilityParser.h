#pragma once

#include "xml/Capabilities.h"
#include "xml/DomParser.h"

#include <QMap>

// Reads the capability list: per model, whether network functions, the buy-now button and
// the IDS framing are offered. A model the list does not name gets everything.
class CapabilityParser : public DomParser
{
public:
    typedef QMap<QString, Capabilities> CapabilityMap;

    // Keyed by modelKey() of each model's NAME; a later entry with the same key wins.
    CapabilityMap parse() const;

    // The name lower-cased with every blank turned into "_".
    static QString modelKey(const QString& name);

private:
    // Only "false", in any case, turns a feature off.
    static bool flag(const QDomElement& model, const QString& attribute);
};
