#include "xml/Attribute.h"

#include "app/Log.h"

Attribute::Attribute(const QString& tag, const QString& name, const QString& value,
                     const QString& ref)
    : _tag(tag)
    , _name(name)
    , _value(value)
    , _ref(ref)
{
    if (isReference())
        _parts = value.split(QLatin1Char('#'));
    TAV_LOG(11, "tag='%s' name='%s' value='%s'", qPrintable(tag), qPrintable(name),
            qPrintable(value));
}
