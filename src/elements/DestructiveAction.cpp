#include "elements/DestructiveAction.h"

#include "elements/Element.h"

namespace {

// The words that mark an action that cannot be taken back, with the translations the shipped
// languages use; matched case-insensitively anywhere in the id or title.
const char* const kDestructiveWords[] = {"reset",  "restore",      "clear",         "erase",
                                         "delete", "zurücksetzen", "wiederherstel", "löschen",
                                         "leeren", "entfernen",    "initialis"};

bool namesDestruction(const QString& text)
{
    for (const char* word : kDestructiveWords) {
        if (text.contains(QString::fromUtf8(word), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

bool DestructiveAction::isDestructive(const Element* element)
{
    return element && (namesDestruction(element->id()) || namesDestruction(element->title()));
}
