#include "qsyntaxtexteditor.h"

#include "qmugensyntaxhierarchy.h"
#include "qmugensyntaxprocessor.h"
#include "qmugensyntaxproperties.h"
#include "text/qcodecs.h"
#include "text/qcommonelements.h"
#include "util/qprompt.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCodec>
#include <QTextDocument>

namespace {

const QByteArray utf8Mark("\xEF\xBB\xBF");

/// Read once at start-up, shared read-only by every document until shutdown.
std::unique_ptr<QMugenSyntaxProperties>& mugenVocabulary()
{
    static std::unique_ptr<QMugenSyntaxProperties> properties;
    return properties;
}

QTextCodec* codecAt(int index)
{
    QTextCodec* codec = index > 0 ? QTextCodec::codecForName(codecName(index).toLatin1()) : nullptr;
    return codec ? codec : QTextCodec::codecForLocale();
}

bool isUtf8(int codec)
{
    return codec > 0 && codec == codecIndex("UTF-8");
}

} // namespace

QSyntaxTextEditor::QSyntaxTextEditor(QProject* project, QProjectFileType type, bool linkElements,
                                     unsigned int syntaxVersion, bool enableErrors, QObject* parent)
    : QElementTextEditor(linkElements, parent)
    , QProjectFile(project, type)
    , m_syntaxVersion(syntaxVersion)
    , m_enableErrors(enableErrors)
{
    m_hierarchyTimer.setSingleShot(true);
    m_hierarchyTimer.setInterval(hierarchyDelay);
    connect(&m_hierarchyTimer, &QTimer::timeout, this, &QSyntaxTextEditor::updateHierarchy);
    connect(document(), &QTextDocument::contentsChanged, this, &QSyntaxTextEditor::docChanged);
    // Every file of a project is an engine file; a file's own text can say otherwise on loading.
    setLanguage(sptMugen);
}

QSyntaxTextEditor::~QSyntaxTextEditor()
{
    // A processor clears its formats from every line when it goes: that
    // changes no text, so the chain need not follow.
    raiseSuppress();
    m_processor.reset();
}

bool QSyntaxTextEditor::initProperties(const QString& dir)
{
    std::unique_ptr<QMugenSyntaxProperties>& properties = mugenVocabulary();
    if (properties)
        return true;
    auto read = std::make_unique<QMugenSyntaxProperties>();
    if (!read->fromFile(dir + QStringLiteral("/syntax_mugen.xml")))
        return false;
    properties = std::move(read);
    return true;
}

const QMugenSyntaxProperties* QSyntaxTextEditor::mugenProperties()
{
    return mugenVocabulary().get();
}

bool QSyntaxTextEditor::fromFile(const QString& fileName, unsigned int codec, bool keepName)
{
    const QFileInfo info(fileName);
    QFile file(fileName);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return false;

    int used = 0;
    QString text = stringFromData(data, int(codec), &used);
    m_codec = used;
    m_byteOrderMark = isUtf8(used) && data.startsWith(utf8Mark);
    const qsizetype lineFeed = text.indexOf(QLatin1Char('\n'));
    m_lineFeedEnds = lineFeed == 0 || (lineFeed > 0 && text.at(lineFeed - 1) != QLatin1Char('\r'));
    // The mark is the file's business, not the text's: it would hide the first line's header.
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);

    setLanguage(detectLanguage(text));
    const QString title = this->title();
    const QString url = this->fileName();
    document()->setPlainText(text);
    if (keepName) {
        document()->setMetaInformation(QTextDocument::DocumentTitle, title);
        document()->setMetaInformation(QTextDocument::DocumentUrl, url);
    } else {
        setFileName(info.absoluteFilePath());
    }
    document()->setModified(false);
    updateHierarchy();
    return true;
}

bool QSyntaxTextEditor::toFile(const QString& fileName, bool utf8, bool keepName)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    m_saving = true;
    int codec = utf8 ? codecIndex("UTF-8") : m_codec;
    const QString text = textWithCrlf();
    if (!codecAt(codec)->canEncode(text)) {
        // Saving in the file's own encoding would lose what the author typed.
        prompt().warning(tr("Saving"), tr("%1 holds characters that %2 can't store: it is saved in UTF-8.")
                                           .arg(QFileInfo(fileName).fileName(), codecName(codec)));
        codec = codecIndex("UTF-8");
    }
    const bool mark = m_byteOrderMark && isUtf8(codec);
    file.write((mark ? utf8Mark : QByteArray()) + stringToData(text, codec));
    const bool written = file.commit();
    m_saving = false;
    if (!written)
        return false;
    if (!keepName) {
        m_codec = codec;
        document()->setModified(false);
        setFileName(QFileInfo(fileName).absoluteFilePath());
    }
    return true;
}

void QSyntaxTextEditor::clear()
{
    document()->setPlainText(QString());
    setFileName(QString());
    m_codec = 0;
    m_byteOrderMark = false;
    m_lineFeedEnds = false;
    messages()->clear();
    document()->setModified(false);
    updateHierarchy();
}

bool QSyntaxTextEditor::reload()
{
    return fromFile(fileName(), unsigned(m_codec), false);
}

QString QSyntaxTextEditor::fileName() const
{
    return document()->metaInformation(QTextDocument::DocumentUrl);
}

QString QSyntaxTextEditor::title() const
{
    return document()->metaInformation(QTextDocument::DocumentTitle);
}

void QSyntaxTextEditor::setTitle(const QString& title)
{
    document()->setMetaInformation(QTextDocument::DocumentTitle, title);
}

void QSyntaxTextEditor::setFileName(const QString& fileName)
{
    emit fileNameChanging();
    setTitle(fileName.isEmpty() ? QString() : QFileInfo(fileName).fileName());
    document()->setMetaInformation(QTextDocument::DocumentUrl, fileName);
    emit fileNameChanged();
}

void QSyntaxTextEditor::setSyntaxVersion(unsigned int version)
{
    m_syntaxVersion = version;
    if (m_processor)
        m_processor->setVersion(version);
}

void QSyntaxTextEditor::setLanguage(QSyntaxProcessorType language)
{
    if (language == m_language && (m_processor || language != sptMugen || !mugenProperties()))
        return;
    raiseSuppress();
    m_processor.reset();
    lowerSuppress();
    m_hierarchy.reset();
    m_language = language;
    if (language != sptMugen)
        return;
    m_hierarchy = std::make_unique<QMugenSyntaxHierarchy>(document());
    if (const QMugenSyntaxProperties* properties = mugenProperties()) {
        m_processor = std::make_unique<QMugenSyntaxProcessor>(document(), properties, m_enableErrors);
        // A new highlighter ignores the document's changes until its first
        // full pass, which it posts to the event loop; run that pass now so
        // that the findings follow the text from the first edit on, also
        // where no event loop runs.
        QCoreApplication::sendPostedEvents(m_processor.get(), QEvent::MetaCall);
        m_processor->setVersion(m_syntaxVersion);
    }
}

QSyntaxProcessorType QSyntaxTextEditor::detectLanguage(const QString& text)
{
    static const QRegularExpression mugen(QStringLiteral("^\\s*[;\\[]"), QRegularExpression::MultilineOption);
    static const QRegularExpression lua(QStringLiteral("\\bfunction\\b"));
    if (mugen.match(text).hasMatch())
        return sptMugen;
    const QRegularExpressionMatch function = lua.match(text);
    return function.hasMatch() && function.capturedStart() > 0 ? sptLua : sptNone;
}

bool QSyntaxTextEditor::sectionExists(const QString& section) const
{
    return m_hierarchy && m_hierarchy->findGroup(section) >= 0;
}

QString QSyntaxTextEditor::findValue(const QString& section, const QString& key) const
{
    return m_hierarchy ? m_hierarchy->findValue(section, key) : QString();
}

bool QSyntaxTextEditor::isModified() const
{
    return document()->isModified();
}

bool QSyntaxTextEditor::isEmpty() const
{
    return document()->isEmpty();
}

bool QSyntaxTextEditor::canDiscard()
{
    if (!isModified() || isEmpty())
        return true;
    return prompt().question(tr("Discard changes"), discardMsg(), QPrompt::Yes | QPrompt::No, QPrompt::No)
           == QPrompt::Yes;
}

QString QSyntaxTextEditor::discardMsg() const
{
    const QString name = title().isEmpty() ? tr("the new text") : title();
    return tr("Do you really want to discard the changes made in %1?").arg(name);
}

void QSyntaxTextEditor::checkErrors()
{
    QMessages* list = messages();
    list->beginChange();
    list->clear();
    if (m_processor) {
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            const QTextEditorBlockData* data = QSyntaxProcessor::blockData(block.userData());
            if (!data)
                continue;
            for (const QSynMsg& msg : data->messages)
                list->add(msg.isError() ? mtError : mtWarning, msg.text, msg.column, block.blockNumber());
        }
    }
    list->endChange();
}

void QSyntaxTextEditor::updateHierarchy()
{
    m_hierarchyTimer.stop();
    if (m_hierarchy)
        m_hierarchy->update();
    hierarchyUpdateEnd();
}

void QSyntaxTextEditor::updateInternal(QList<QTextElementChange>& changes)
{
    updateCommonElements(changes);
    QElementTextEditor::updateInternal(changes);
}

void QSyntaxTextEditor::docChanged()
{
    m_hierarchyTimer.start();
}

QString QSyntaxTextEditor::textWithCrlf() const
{
    const QString lineEnd = m_keepLineEnds && m_lineFeedEnds ? QStringLiteral("\n") : QStringLiteral("\r\n");
    QString text;
    text.reserve(document()->characterCount() + document()->blockCount());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block != document()->begin())
            text += lineEnd;
        text += block.text();
    }
    return text;
}
