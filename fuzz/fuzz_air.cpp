// Arbitrary bytes as an AIR file: decoded as a file is (detection included)
// and also taken as raw UTF-16, read into the animation model, checked, then
// edited through the model and undone. Nothing may crash; the links must
// hold both ways, and undoing the edits must give back the text.
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qinterframeelement.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qtextelementreg.h"
#include "util/qengineversion.h"

#include <QCoreApplication>
#include <QTextDocument>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

/// Every link points back: frames in their action, boxes in their declaration.
void checkLinks(const QAnimations& model)
{
    for (const QAnimation* action : model.animations()) {
        require(action->isValid());
        for (const QAnimationFrame* frame : action->frames()) {
            require(frame->isValid() && frame->parent() == action);
            for (int type = 0; type < collisionBoxTypeCount; ++type) {
                const QCollisionBoxes* boxes = frame->collisionBoxes(QCollisionBoxType(type));
                if (!boxes)
                    continue;
                require(boxes->isValid() && boxes->parent() == frame && boxes->clsnType() == type);
                for (const QCollisionBox* box : boxes->boxes())
                    require(box->isValid() && box->parent() == boxes && box->left() <= box->right());
            }
            for (const QInterFrameElement* line : frame->interFrameElements())
                require(line->isValid() && line->parent() == frame);
        }
    }
}

void editAndUndo(QAnimations& model, QSyntaxTextEditor& text, unsigned char control)
{
    QTextDocument* document = text.document();
    const QString original = document->toPlainText();
    QAnimation* action = model.at(control % std::max(1, model.count()));
    QAnimationFrame* frame = action ? action->frame(control % std::max(1, action->frameCount())) : nullptr;
    if (frame) {
        frame->setProperties(QSubItem(control, -control), QPoint(control, 1), control - 100, control & 3,
            QAnimationFrameBlend(control % 3), QBlendTarget { 256, qint16(control) },
            QPointF(control / 7.0, 1), control);
        frame->insertBox(QCollisionBoxType(control & 3), QRect(-control, -control, control, 9));
        frame->setInterElem(QInterFrameElementType(control % interFrameElementTypeCount), control & 8);
        if (QCollisionBoxes* boxes = frame->collisionBoxes(cbtClsn2); boxes && boxes->count() > 0)
            boxes->at(0)->remove(true);
    }
    if (action) {
        action->addFrame();
        model.duplicate(0, control & 1 ? -1 : int(control));
        model.move(0, unsigned(model.count() - 1));
    }
    model.add(control);
    model.remove(unsigned(control % std::max(1, model.count())));
    checkLinks(model);
    while (document->isUndoAvailable())
        document->undo();
    require(document->toPlainText() == original);
    checkLinks(model);
}

void readAir(const QString& content, unsigned char control)
{
    QSyntaxTextEditor text(nullptr, pftAnimations, true, engineVersion::v1_1, false);
    QAnimations model(nullptr, &text);
    model.setRenumber(false);
    text.document()->setPlainText(content);
    model.setRenumber(true);
    text.document()->clearUndoRedoStacks();
    model.checkErrors();
    checkLinks(model);
    for (int i = 0; i < model.count(); ++i) {
        model.data(model.QAbstractListModel::index(i));
        model.at(i)->text();
        model.at(i)->totalTime();
    }
    editAndUndo(model, text, control);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_air";
    static char* argv[] = { name, nullptr };
    static QCoreApplication* application = [] {
        auto* made = new QCoreApplication(argc, argv);
        initCodecs();
        QProject::init();
        // The registry lives as long as the process; handing it back keeps the leak check to real leaks.
        std::atexit([] { QTextElementReg::release(); });
        return made;
    }();
    Q_UNUSED(application);
    if (size == 0)
        return 0;
    const unsigned char control = data[0];
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    readAir(stringFromData(bytes, control, nullptr), control);
    readAir(QString(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / 2), control);
    return 0;
}
