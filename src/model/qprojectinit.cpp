// QProject::init() stands apart from the rest of QProject: it brings
// together the registries of the text models and of the sprites, whose
// headers each declare an object pool named QRecycleAllocator and so can't
// meet in one translation unit.
#include "qdefinitions.h"
#include "qproject.h"
#include "text/qcommonelements.h"

void QProject::init()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    // The models' own element kinds come before the common ones, which would claim their lines.
    QDefinitions::init();
    initCommonElements();
    initSprites();
}
