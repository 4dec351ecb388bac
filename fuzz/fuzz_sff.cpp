// The SFF reader on arbitrary bytes: it never crashes, hangs or reads out of
// bounds; a file it refuses leaves the model empty, and every sprite of a file
// it takes decodes to the size it states.
#include "model/qsffreader.h"
#include "model/qspriteimagedata.h"
#include "model/qsprites.h"

#include <QCoreApplication>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_sff";
    static char* argv[] = { name, nullptr };
    static QCoreApplication* application = [] {
        QSprites::init();
        return new QCoreApplication(argc, argv);
    }();
    Q_UNUSED(application);

    QSprites sprites(nullptr, ctMemory, false, -1);
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    if (!QSFFReader(&sprites, true).read(bytes, QStringLiteral("fuzz.sff"))) {
        if (!sprites.isEmpty())
            __builtin_trap();
        return 0;
    }
    for (int i = 0; i < sprites.count(); ++i) {
        const QSprite* sprite = sprites.at(i);
        const QImage image = sprite->image(sipDisplay);
        if (sprite->imageData() && !image.isNull()
            && (image.width() != sprite->imageData()->width || image.height() != sprite->imageData()->height))
            __builtin_trap();
    }
    return 0;
}
