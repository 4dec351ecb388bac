#pragma once

#include "text/qelementtexteditor.h"
#include "text/qnamedparamgroup.h"
#include "text/namedparamgrpreg.h"

#include <QStringList>

/**
 * What the element tests share: a registry like the models build (named,
 * singleton and unknown groups, naming comments, parameters of every
 * sub-type), an editor that keeps groups up to date and logs what it hears,
 * and a readable description of a chain for comparisons.
 */
namespace kit {

/// Group types of the test's named groups (beyond the program's own bits).
constexpr QTextElementType statedefType = 0x10000;
constexpr QTextElementType stateType = 0x20000;
constexpr QTextElementType actionType = 0x40000;
constexpr QTextElementType commandType = 0x80000;

/// Parameter IDs registered by registerElements().
enum ParamId : QGroupParamID {
    idName = 1,
    idLife = 2,
    idType = 3,
    idVelset = 4,
    idVersion = 5,
    idSize = 6,
    idScale = 7,
    idCommand = 0x1F,
    idTrigger = 9,
    idSprite = 10,
    idAnim = 11,
    idCtrl = 12,
    idTime = 13,
    idTriggerAll = 14,
    idValue = 15,
    idMoveType = 16,
    idPhysics = 17,
    idAttack = 18,
    idDisplayName = 19,
    idCns = 0xE000A,
};

/// Fills the process-wide registry once.
void registerElements();

/// A named group that logs what its owner would hear.
class LoggingGroup : public QNamedParamGroup
{
public:
    QTextElementType groupType() const override { return m_type; }
    void setGroupType(QTextElementType type) { m_type = type; }
    void paramsRemoved(const QList<QGroupParam*>& params) override;
    void paramsUpdated(const QList<QGroupParam*>& params) override;

private:
    QTextElementType m_type = 0;
};

/// Every paramsRemoved/paramsUpdated call since the last clear, as
/// "removed <group line>: <param lines>" / "updated ...".
QStringList& groupLog();

/// An editor with every registered kind enabled that keeps groups and
/// comments linked, as a model does, and logs its reports.
class Editor : public QElementTextEditor
{
public:
    explicit Editor(bool linkDocument = true);

    void setText(const QString& text);
    QString text() const;

    /// The last report, as "A 3 param", "R 5 header", "U 2 comment".
    QStringList changes;
    QList<bool> updatedSignals;

protected:
    void updateInternal(QList<QTextElementChange>& changes) override;
};

/// One line per element, with its line, kind, value, links and members.
QStringList describe(const QElementTextEditor& editor);
/// The chain that a fresh editor builds from the same text.
QStringList describeFresh(const QString& text);
/// Broken links of the chain (empty when sound).
QString checkChain(const QElementTextEditor& editor);

} // namespace kit
