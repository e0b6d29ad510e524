#include "ui/MimeSourceFactory_dorn.h"

#include <QtGlobal>

static void initImages()
{
    Q_INIT_RESOURCE(images);
}

void MimeSourceFactory_dorn::registerImages()
{
    static const bool registered = [] {
        initImages();
        return true;
    }();
    Q_UNUSED(registered);
}
