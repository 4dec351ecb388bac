#pragma once

#include "qsyntaxproperties.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

class QXmlStreamReader;

/**
 * The keys of one section of the vocabulary, by lowered name. Keys matched
 * by a pattern or followed by a parenthesised expression can't be found by
 * name, so they are also listed apart for the checker to walk.
 */
struct QSynTable
{
    QMap<QString, QSynInfo> entries;
    QStringList walked; ///< names of the entries that are not of the plain kind

    void insert(const QString& name, const QSynInfo& info);
    const QSynInfo* find(const QString& loweredName) const;
    bool isEmpty() const { return entries.isEmpty(); }
};

/// A controller (of a state, or of a stage background) or a background type:
/// its own description and its parameters.
struct QSynController
{
    QString name;
    QSynInfo info;
    QSynTable params;
    /// Controllers whose parameters this one also reads, each with the prefix
    /// its keys take here (HitDef reads PalFX's as "palfx.time", ...).
    QVector<QPair<QString, QString>> includes;
    /// The lowered names of the parameters the engine requires, in the file's order.
    QStringList required;
};

/**
 * The vocabulary of the engine's text formats, read from "syntax_mugen.xml":
 * triggers, constants, state controllers, background controllers and types,
 * and the plain keys of every section the checker reads. Controllers are kept
 * in a vector so that a line's block state can carry one as a number.
 */
class QMugenSyntaxProperties : public QSyntaxProperties
{
public:
    enum ControllerKind { StateController = 0, BgController = 1, BgControl = 2 };

    bool fromFile(const QString& fileName) override;
    /// Reads an opened document; the fault text, if any, goes to `error`.
    bool fromDevice(QIODevice* device, QString* error);

    /// A section of plain keys ("files", "size", "trigger", "consts", "fnt_def", ...),
    /// empty when the vocabulary has none.
    const QSynTable& section(const QString& name) const;

    int controllerCount(ControllerKind kind) const { return m_controllers[kind].size(); }
    const QSynController& controller(ControllerKind kind, int index) const { return m_controllers[kind].at(index); }
    /// The index of the named controller (case ignored), or -1.
    int findController(ControllerKind kind, const QString& name) const;
    /// The parameters every controller of the kind accepts (the entry "*").
    const QSynTable& commonParams(ControllerKind kind) const { return m_common[kind]; }

private:
    void readElement(QXmlStreamReader& xml);
    void readEntry(QXmlStreamReader& xml, QSynTable& table);
    void readController(QXmlStreamReader& xml, ControllerKind kind);
    /// Adds the parameters of included controllers, once the whole file is read.
    void resolveIncludes();
    void include(ControllerKind kind, int index, int depth);

    QHash<QString, QSynTable> m_sections;
    QVector<QSynController> m_controllers[3];
    QHash<QString, int> m_controllerIndex[3];
    QSynTable m_common[3];
};
