#pragma once

// Makes the program's embedded images (dialog pixmaps, wizard pictures) available under
// ":/images/...". The images live in a static library, whose resources register only when
// something asks for them; this is that request, made once per process.
class MimeSourceFactory_dorn
{
public:
    static void registerImages();
};
