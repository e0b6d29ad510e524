#pragma once

#include <QString>

#include <optional>

class Element;
class NumericElement;

// What a value typed by a person, or read from a backup, must satisfy to be stored in a
// setting: the same rules the dialog's controls enforce, answered without a control so that
// the command-line program and the dialog's import judge values alike.
class InputRules
{
public:
    struct Verdict
    {
        bool accepted = false;
        QString value; // the text to store: a list's parameter id even when its title was given
        QString rule;  // what the setting allows, for the refusal message
    };

    // Integer limits of a numeric setting; a limit that is missing or not a number is no limit.
    struct Range
    {
        std::optional<qint64> lower;
        std::optional<qint64> upper;
        qint64 step = 1;
    };

    // Value settings a person may change: not static texts, buttons, groups or tables.
    static bool isWritable(const Element* element);
    static Verdict check(const Element* element, const QString& text);
    // What the setting allows, in words.
    static QString describe(const Element* element);

    static Range integerRange(const NumericElement* element);
    // Four dotted decimal parts of 0..255; a mask also has its one bits in front.
    static bool isAddress(const QString& text);
    static bool isMask(const QString& text);

private:
    static Verdict checkList(const Element* element, const QString& text);
    static Verdict checkInteger(const NumericElement* element, const QString& text);
    static Verdict checkFloat(const Element* element, const QString& text);
    static Verdict checkText(const Element* element, const QString& text);
    static QString rangeText(const Range& range);
};
