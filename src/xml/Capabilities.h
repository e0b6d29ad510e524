#pragma once

// What the program offers for one printer model. A model missing from the capability list
// gets every feature.
struct Capabilities
{
    bool network = true;      // network settings and functions
    bool buyNowButton = true; // the buy-now button
    bool ids = true;          // the device may be spoken to in the IDS command framing
};
