#include "xml/RefAttribute.h"

RefAttribute::RefAttribute(const QString& tag, const QString& name, const QString& value,
                           const QString& ref)
    : Attribute(tag, name, value, ref)
{
}

QString RefAttribute::referencedId() const
{
    return parts().isEmpty() ? QString() : parts().first();
}

QString RefAttribute::referencedField() const
{
    return parts().size() > 1 ? parts().at(1) : QString();
}
