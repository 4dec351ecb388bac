// The sprites editor's work with files: pictures added, replacing a
// sprite's picture, the selection exported, and the SFF version to save.
#include "qspriteseditor.h"

#include "qeditorpage.h"
#include "qspritefileimport.h"
#include "qspritetablemodel.h"
#include "formats/qimagefiles.h"
#include "interface/dialogs/savespr.h"
#include "interface/qclickablelabel.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "util/qengineversion.h"
#include "util/qprompt.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QTableView>
#include <QUndoCommand>

namespace {

const char imageFilter[] = QT_TRANSLATE_NOOP("QSpritesEditor", "Images (*.png *.pcx *.gif *.bmp)");

/// Asks where a numbered series of `count` pictures goes: first group, index and step.
bool askSeriesPlace(QWidget* parent, int count, int& group, int& index, int& step)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(QSpritesEditor::tr("Add a numbered series"));
    auto* form = new QFormLayout(&dialog);
    form->addRow(new QLabel(QSpritesEditor::tr("%n picture(s) will be added.", nullptr, count)));
    QSpinBox* groupBox = QEditorPage::numberBox(&dialog, QStringLiteral("seriesGroup"));
    QSpinBox* indexBox = QEditorPage::numberBox(&dialog, QStringLiteral("seriesIndex"));
    QSpinBox* stepBox = QEditorPage::numberBox(&dialog, QStringLiteral("seriesStep"));
    groupBox->setValue(group);
    indexBox->setValue(index);
    stepBox->setRange(1, 1000);
    stepBox->setValue(step);
    form->addRow(QSpritesEditor::tr("First group:"), groupBox);
    form->addRow(QSpritesEditor::tr("First index:"), indexBox);
    form->addRow(QSpritesEditor::tr("Step:"), stepBox);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    form->addRow(buttons);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    group = groupBox->value();
    index = indexBox->value();
    step = stepBox->value();
    return true;
}

/// The version a sprite file is saved in, as an undoable setting of the file.
class SpritesVersionChange : public QUndoCommand
{
public:
    SpritesVersionChange(QSprites* sprites, quint32 version)
        : QUndoCommand(QSpritesEditor::tr("SFF version %1").arg(engineVersion::dotted(version)))
        , m_sprites(sprites)
        , m_before(sprites->getVersion())
        , m_after(version)
    {
    }
    void redo() override { m_sprites->setVersion(m_after); }
    void undo() override { m_sprites->setVersion(m_before); }

private:
    QSprites* m_sprites;
    quint32 m_before;
    quint32 m_after;
};

} // namespace

void QSpritesEditor::warn(const QString& title, const QString& text)
{
    m_status->setText(text);
    prompt().warning(title, text);
}

int QSpritesEditor::addFiles(const QStringList& files, int group, int index, int step)
{
    if (!sprites())
        return 0;
    const int first = sprites()->count();
    QSpriteFileImport import(sprites());
    const int added = import.add(files, group, index, step);
    if (!import.error().isEmpty()) {
        warn(tr("Add pictures"), import.error());
        return 0;
    }
    if (added > 0) {
        m_table->clearSelection();
        m_table->setCurrentIndex(m_model->index(first, 0));
        m_table->selectionModel()->select(
            QItemSelection(m_model->index(first, 0), m_model->index(first + added - 1, 0)),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
        m_status->setText(tr("%n sprite(s) added.", nullptr, added));
    }
    return added;
}

void QSpritesEditor::addImages()
{
    if (!sprites())
        return;
    const QStringList files
        = QFileDialog::getOpenFileNames(view(), tr("Add pictures"), QString(), tr(imageFilter));
    if (files.isEmpty())
        return;
    const QSprite* current = sprites()->at(m_table->currentIndex().row());
    const int group = current ? current->itemGroup() : 0;
    addFiles(files, group, sprites()->nextSpriteIndex(group), 1);
}

void QSpritesEditor::addSeries()
{
    if (!sprites())
        return;
    const QString first
        = QFileDialog::getOpenFileName(view(), tr("First picture of the series"), QString(), tr(imageFilter));
    if (first.isEmpty())
        return;
    const QStringList files = QSpriteFileImport::numberedSeries(first);
    const QSprite* current = sprites()->at(m_table->currentIndex().row());
    int group = current ? current->itemGroup() : 0;
    int index = sprites()->nextSpriteIndex(group);
    int step = 1;
    if (askSeriesPlace(view(), files.size(), group, index, step))
        addFiles(files, group, index, step);
}

bool QSpritesEditor::replaceImage(const QString& file)
{
    QSprite* sprite = currentSprite();
    if (!sprite)
        return false;
    QSpriteFileImport import(sprites());
    const QList<QImage> images = import.read({ file });
    if (!import.error().isEmpty())
        warn(tr("Replace picture"), import.error());
    if (images.isEmpty())
        return false;
    // Sprites linked to this one keep the picture they had.
    sprite->setImage(images.first(), ssmPrivate);
    m_status->setText(tr("Picture of %1,%2 replaced.").arg(sprite->itemGroup()).arg(sprite->itemIndex()));
    return true;
}

void QSpritesEditor::askReplaceImage()
{
    if (!currentSprite())
        return;
    const QString file
        = QFileDialog::getOpenFileName(view(), tr("Replace picture"), QString(), tr(imageFilter));
    if (!file.isEmpty())
        replaceImage(file);
}

int QSpritesEditor::exportSelection(const QString& path)
{
    const QList<int> rows = selectedRows();
    const QFileInfo target(path);
    int written = 0;
    for (int row : rows) {
        const QSprite* sprite = sprites()->at(row);
        if (!sprite->imageData())
            continue;
        const QString file = rows.size() == 1 ? path
                                              : target.dir().filePath(QStringLiteral("%1-%2-%3.%4")
                                                                          .arg(target.completeBaseName())
                                                                          .arg(sprite->itemGroup())
                                                                          .arg(sprite->itemIndex())
                                                                          .arg(target.suffix()));
        if (!saveImage(file, sprite->image(sipOwn))) {
            warn(tr("Export pictures"), tr("%1: could not be written").arg(QDir::toNativeSeparators(file)));
            return written;
        }
        ++written;
    }
    m_status->setText(tr("%n picture(s) exported.", nullptr, written));
    return written;
}

void QSpritesEditor::askExport()
{
    const QSprite* sprite = currentSprite();
    if (!sprite || selectedRows().isEmpty())
        return;
    const QString base = selectedRows().size() == 1
        ? QStringLiteral("%1-%2.png").arg(sprite->itemGroup()).arg(sprite->itemIndex())
        : QFileInfo(sprites()->fileName()).completeBaseName() + QStringLiteral(".png");
    const QString path = QFileDialog::getSaveFileName(
        view(), tr("Export pictures"), base, tr("PNG pictures (*.png);;PCX pictures (*.pcx)"));
    if (!path.isEmpty())
        exportSelection(path);
}

void QSpritesEditor::setSaveVersion(quint32 version)
{
    if (sprites() && version != sprites()->getVersion())
        sprites()->pushCommand(new SpritesVersionChange(sprites(), version));
    updateVersion();
}

void QSpritesEditor::askVersion()
{
    if (!sprites())
        return;
    SaveSpr dialog(sprites()->getVersion(), view());
    if (dialog.exec() == QDialog::Accepted)
        setSaveVersion(dialog.version());
}

void QSpritesEditor::updateVersion()
{
    const quint32 version = sprites() ? sprites()->getVersion() : 0;
    m_version->setText(tr("SFF %1").arg(engineVersion::dotted(version)));
}
