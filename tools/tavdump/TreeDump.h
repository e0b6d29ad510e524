#pragma once

#include <QString>
#include <QStringList>

class Element;

// One line per element in document order, groups and tables included: level, id, type
// name, current, initial and factory value, validity; indented two blanks per level.
class TreeDump
{
public:
    static QStringList lines(Element* root);
    static QString line(Element* element);

private:
    static QString quoted(const QString& text, bool present);
};
