#pragma once

class Element;

// Device buttons whose id or title say they reset, restore, clear, erase or delete something:
// pressing one asks first.
class DestructiveAction
{
public:
    static bool isDestructive(const Element* element);
};
