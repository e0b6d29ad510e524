#pragma once

#include "xml/Attribute.h"

// An attribute assignment declared with the tag "RefAttribute": its value names another
// setting (and what to take from it) rather than a literal.
class RefAttribute : public Attribute
{
public:
    RefAttribute(const QString& tag, const QString& name, const QString& value, const QString& ref);

    // The referenced setting's id, and what is taken from it ("" when the value names only
    // the setting).
    QString referencedId() const;
    QString referencedField() const;
};
