#pragma once

#include "model/qprojectfile.h"
#include "text/qelementtexteditor.h"

#include <QString>
#include <QTimer>

#include <memory>

class QMugenSyntaxHierarchy;
class QMugenSyntaxProperties;
class QSyntaxProcessor;

/// The language a text document is checked and outlined in.
enum QSyntaxProcessorType {
    sptNone = 0,
    sptMugen = 1,
    sptLua = 2,
};

/**
 * The document behind every text file of a project (DEF, AIR, CMD, CNS and
 * ST): an element document that is also a file of its project. It loads a
 * file in its own encoding and saves it back in that encoding, with CRLF
 * line ends and its UTF-8 byte-order mark if it had one; it runs the syntax
 * processor of its language over the text and rebuilds its outline on a
 * timer after edits; it turns the processor's findings into the file's
 * messages on checkErrors().
 *
 * The file's name and absolute path are the document's title and URL. Saving
 * goes through a temporary file that replaces the target only when complete,
 * so a failed save leaves the previous file as it was. A failed load or save
 * returns false with no message: the caller reports.
 *
 * `linkElements` makes the element chain follow the document (models built on
 * the chain need it; plain state files don't). `syntaxVersion` is the engine
 * version the processor checks against. Without `enableErrors` the processor
 * only colours. Call initProperties() once before making documents that
 * should be checked: without the vocabulary there is no processor.
 */
class QSyntaxTextEditor : public QElementTextEditor, public QProjectFile
{
    Q_OBJECT

public:
    /// Milliseconds of quiet typing after which the outline is rebuilt.
    static constexpr int hierarchyDelay = 300;

    QSyntaxTextEditor(QProject* project, QProjectFileType type, bool linkElements, unsigned int syntaxVersion,
                      bool enableErrors, QObject* parent = nullptr);
    ~QSyntaxTextEditor() override;

    /// Reads the vocabularies in `dir` once per process; false when the
    /// engine's could not be read.
    static bool initProperties(const QString& dir);
    static const QMugenSyntaxProperties* mugenProperties();

    /**
     * Replaces the text by the file's, decoded with the detected encoding or
     * else with the codec at index `codec`. With `keepName` the document
     * keeps its title and URL (contents only, as when loading a backup).
     * False, with the document untouched, when the file can't be read.
     */
    virtual bool fromFile(const QString& fileName, unsigned int codec, bool keepName);
    /**
     * Writes the text with CRLF line ends in the file's codec, or in UTF-8
     * with `utf8`. Without `keepName` the file becomes the document's file
     * and the document unmodified; with it (copies for the engine, backups)
     * the document is left as it is.
     */
    bool toFile(const QString& fileName, bool utf8, bool keepName);
    /// Empties the text, forgets the file and its encoding.
    virtual void clear();
    /// Reads the document's file again in the codec it was read with.
    bool reload();

    /// The absolute path of the file, empty for a text never saved.
    QString fileName() const;
    QString title() const;
    void setTitle(const QString& title);
    /// The index of the codec the file was read with (see text/qcodecs.h).
    int codec() const { return m_codec; }
    /// Whether the file starts with a UTF-8 byte-order mark, kept on saving.
    bool hasByteOrderMark() const { return m_byteOrderMark; }
    /// Whether the file read last ended its lines with a bare line feed.
    bool hasLineFeedEnds() const { return m_lineFeedEnds; }
    /// With `keep`, a file read with bare line feeds is written with them,
    /// so that saving it unchanged gives the same bytes; else (the default)
    /// every file is written with CRLF.
    void setKeepLineEnds(bool keep) { m_keepLineEnds = keep; }
    /// True while the document writes its own file: a watcher of the file ignores the change.
    bool isSaving() const { return m_saving; }

    unsigned int syntaxVersion() const { return m_syntaxVersion; }
    /// Checks the text for another engine version from now on.
    void setSyntaxVersion(unsigned int version);

    QSyntaxProcessorType language() const { return m_language; }
    void setLanguage(QSyntaxProcessorType language);
    /// The engine's language when a line starts with ";" or "[", else Lua
    /// when "function" appears past the very start, else none.
    static QSyntaxProcessorType detectLanguage(const QString& text);
    /// Null without a language or without the vocabulary.
    QSyntaxProcessor* processor() const { return m_processor.get(); }
    /// Null when the language has no outline.
    const QMugenSyntaxHierarchy* hierarchy() const { return m_hierarchy.get(); }

    /// Whether the outline has a group of that name (ignoring case).
    bool sectionExists(const QString& section) const;
    /// The value of `key` in the group `section` as the outline finds it; null when absent.
    QString findValue(const QString& section, const QString& key) const;

    bool isModified() const override;
    bool isEmpty() const override;
    bool canDiscard() override;
    void checkErrors() override;

public slots:
    /// Rebuilds the outline now, then lets the model read it (hierarchyUpdateEnd()).
    void updateHierarchy();

signals:
    /// Around every change of the document's file name, for the file watcher.
    void fileNameChanging();
    void fileNameChanged();

protected:
    /// Called after every rebuild of the outline.
    virtual void hierarchyUpdateEnd() {}
    /// Keeps groups and parameters in step, then reports the change.
    void updateInternal(QList<QTextElementChange>& changes) override;
    /// The question canDiscard() asks.
    virtual QString discardMsg() const;

private slots:
    void docChanged();

private:
    void setFileName(const QString& fileName);
    /// The text with the line ends to write (CRLF unless kept as read), read
    /// line by line so that no character is converted.
    QString textWithCrlf() const;

    std::unique_ptr<QSyntaxProcessor> m_processor;
    std::unique_ptr<QMugenSyntaxHierarchy> m_hierarchy;
    QSyntaxProcessorType m_language = sptNone;
    QTimer m_hierarchyTimer;
    int m_codec = 0;
    bool m_byteOrderMark = false;
    bool m_lineFeedEnds = false;
    bool m_keepLineEnds = false;
    unsigned int m_syntaxVersion;
    bool m_enableErrors;
    bool m_saving = false;
};
