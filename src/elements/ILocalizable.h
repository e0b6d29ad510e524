#pragma once

#include <QString>

// The texts of a translatable object: the device's display string, the shown caption and the
// description. Elements and list parameters both implement it so that one translator serves
// them all.
class ILocalizable
{
public:
    virtual ~ILocalizable() = default;

    virtual QString string() const = 0;
    virtual QString title() const = 0;
    virtual QString description() const = 0;
    virtual void setString(const QString& s) = 0;
    virtual void setTitle(const QString& s) = 0;
    virtual void setDescription(const QString& s) = 0;
};
