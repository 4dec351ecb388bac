#pragma once

#include "qprojectfiles.h"
#include "qprojecttypes.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QSize>
#include <QTimer>

class QParamGroup;

/**
 * The DEF file, root of every project. Its text decides what the project
 * is: the kind (from the groups the text has), the name, the engine version
 * and local coordinate space (from [Info]), and the files the project is
 * made of (files()). All of it follows the text as the author types:
 * nameChanged and versionChanged fire once for each edit that changes the
 * value, typeChanged once the outline, rebuilt shortly after an edit, shows
 * another kind. Nothing keeps these facts apart from the text.
 *
 * A change of version reaches the checkers of the project's other text files
 * only after a quarter second without another (verTimeOut()), so typing a
 * version does not re-check every document on each key.
 *
 * Call init() once per process, before initCommonElements().
 */
class QDefinitions : public QSyntaxTextEditor
{
    Q_OBJECT

public:
    /// The parameters of a DEF; file keys of a numbered family carry the
    /// index in the high half, and the low byte says what they are.
    enum ParamId : QGroupParamID {
        idName = 1,
        idLocalCoord = 2,
        idMugenVersion = 3,
        idSprite = 4,
        idSpr = 5,
        idSff = 6,
        idAnim = 7,
        idSound = 8,
        idCmd = 9,
        idStates = 10,   ///< low byte of every state file key
        idPalette = 11,  ///< low byte of "pal1".."pal12"; index - 1 in the high half
        idFontFile = 12, ///< "file" of a font's [Def]
    };
    /// The groups of a DEF, as element sub-types.
    enum GroupSubType : QTextElementSubType {
        gstInfo = 0x10,
        gstFiles = 0x11,
        gstBgDef = 0x13,
        gstTitleBgDef = 0x17,
        gstSelectBgDef = 0x18,
        gstVersusBgDef = 0x19,
        gstVictoryBgDef = 0x1A,
        gstOptionBgDef = 0x1B,
        gstSceneDef = 0x1C,
        gstDef = 0x1D,
    };
    static constexpr int defaultLocalWidth = 320;
    static constexpr int defaultLocalHeight = 240;
    /// Milliseconds a version must stand before the other documents re-check.
    static constexpr int versionDelay = 250;

    explicit QDefinitions(QProject* project, QObject* parent = nullptr);

    /// Registers the groups and keys of a DEF, once per process.
    static void init();

    QProjectType type() const { return m_type; }
    /**
     * Makes the text a project of that kind where it can: a DEF whose groups
     * don't decide another kind gets the group that decides this one at its
     * end ("[BGdef]" for a stage...). A character is what no such group
     * makes, so the kind of a DEF that has one stays. type() follows at once.
     */
    void setType(QProjectType type);
    QString name() const { return m_name; }
    /// Writes the name into [Info], adding the group at the top if it is missing.
    void setName(const QString& name);
    unsigned int version() const { return m_version; }
    QSize localCoord() const { return m_localCoord; }
    /// The absolute directory of the DEF; empty for a DEF not read from a file.
    QString baseDirectory() const { return m_baseDirectory; }

    /// The files the text names now, by the rules of the project's kind.
    QProjectFiles files() const;

    bool fromFile(const QString& fileName, unsigned int codec, bool keepName) override;
    void clear() override;

public slots:
    /// Spreads the version to the checkers of this and the project's other text files.
    void verTimeOut();

signals:
    void typeChanged(QProject* project);
    void versionChanged(QProject* project);
    void nameChanged(QProject* project, const QString& name);

protected:
    void hierarchyUpdateEnd() override;
    void updateInternal(QList<QTextElementChange>& changes) override;
    QString discardMsg() const override;

private:
    /// The first group of that sub-type, or null.
    QParamGroup* group(QTextElementSubType subType) const;
    /// Takes name, version and local size from [Info] as the text has them now.
    void readInfo();

    QProjectType m_type = ptCharacter;
    QString m_name;
    unsigned int m_version = 0;
    QSize m_localCoord{defaultLocalWidth, defaultLocalHeight};
    QString m_baseDirectory;
    QTimer m_versionTimer;
};
