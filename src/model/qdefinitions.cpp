#include "qdefinitions.h"

#include "qcommands.h"
#include "qproject.h"
#include "text/paramreg.h"
#include "text/qcommonelements.h"
#include "text/singletongroupreg.h"
#include "util/qengineversion.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTextDocument>

namespace {

template <class T> void registerKey(const QString& key, QGroupParamID id, QRecycleAllocator<T>& pool)
{
    QTextElementReg::registerElement(new ParamReg<T>(key, id, &pool));
}

void registerGroup(const char* name, QTextElementSubType subType)
{
    QTextElementReg::registerElement(new SingletonGroupReg(name, nullptr, subType));
}

QString withSlashes(QString name)
{
    name.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return name;
}

} // namespace

QDefinitions::QDefinitions(QProject* project, QObject* parent)
    : QSyntaxTextEditor(project, pftDefinitions, true, engineVersion::beta, true, parent)
{
    enableElement(true, QNameComment::commentGroupType, 0);
    enableElement(true, QUnknownGroup::unknownGroupType, 0);
    for (QTextElementSubType group = gstInfo; group <= gstDef; ++group)
        enableElement(true, QSingletonParamGroup::singletonGroupType, group);
    for (QTextElementSubType param : {QStringParam::paramSubType, QIntNParam::paramSubType,
                                      QVersionParam::paramSubType, QFileParam::paramSubType})
        enableElement(true, ParamRegBase::paramType, param);

    m_versionTimer.setSingleShot(true);
    m_versionTimer.setInterval(versionDelay);
    connect(&m_versionTimer, &QTimer::timeout, this, &QDefinitions::verTimeOut);
}

void QDefinitions::init()
{
    static bool registered = false;
    if (registered)
        return;
    registered = true;

    registerGroup("info", gstInfo);
    registerKey(QStringLiteral("name"), idName, strAlloc);
    registerKey(QStringLiteral("localcoord"), idLocalCoord, intnAlloc);
    registerKey(QStringLiteral("mugenversion"), idMugenVersion, verAlloc);

    registerGroup("files", gstFiles);
    registerKey(QStringLiteral("sprite"), idSprite, fpAlloc);
    registerKey(QStringLiteral("spr"), idSpr, fpAlloc);
    registerKey(QStringLiteral("sff"), idSff, fpAlloc);
    registerKey(QStringLiteral("anim"), idAnim, fpAlloc);
    registerKey(QStringLiteral("sound"), idSound, fpAlloc);
    registerKey(QStringLiteral("cmd"), idCmd, fpAlloc);
    registerKey(QStringLiteral("cns"), (14 << 16) | idStates, fpAlloc);
    registerKey(QStringLiteral("stcommon"), (15 << 16) | idStates, fpAlloc);
    registerKey(QStringLiteral("st"), (13 << 16) | idStates, fpAlloc);
    for (unsigned int i = 0; i <= 12; ++i)
        registerKey(QStringLiteral("st%1").arg(i), (i << 16) | idStates, fpAlloc);
    for (unsigned int i = 1; i <= unsigned(QProjectFiles::paletteCount); ++i)
        registerKey(QStringLiteral("pal%1").arg(i), ((i - 1) << 16) | idPalette, fpAlloc);

    registerGroup("bgdef", gstBgDef);
    registerGroup("titlebgdef", gstTitleBgDef);
    registerGroup("selectbgdef", gstSelectBgDef);
    registerGroup("versusbgdef", gstVersusBgDef);
    registerGroup("victorybgdef", gstVictoryBgDef);
    registerGroup("optionbgdef", gstOptionBgDef);
    registerGroup("scenedef", gstSceneDef);
    registerGroup("def", gstDef);
    registerKey(QStringLiteral("file"), idFontFile, fpAlloc);
}

void QDefinitions::setName(const QString& name)
{
    const QString value = QStringLiteral("\"%1\"").arg(name);
    if (QParamGroup* info = group(gstInfo)) {
        info->setParamValue(idName, QStringLiteral("name"), value);
        return;
    }
    QElementTextCursor& edit = cursor();
    edit.setPosition(0);
    edit.insertText(QStringLiteral("[Info]\nname = %1\n").arg(value));
}

bool QDefinitions::fromFile(const QString& fileName, unsigned int codec, bool keepName)
{
    // Set first, so that whoever hears the signals of the load finds the new files.
    const QString previous = m_baseDirectory;
    m_baseDirectory = QFileInfo(fileName).absolutePath();
    const bool read = QSyntaxTextEditor::fromFile(fileName, codec, keepName);
    if (!read)
        m_baseDirectory = previous;
    return read;
}

void QDefinitions::clear()
{
    QSyntaxTextEditor::clear();
    m_baseDirectory.clear();
}

QParamGroup* QDefinitions::group(QTextElementSubType subType) const
{
    for (QTextElement* element = head(); element; element = element->chainNext()) {
        if (element->isValid() && element->groupType() == QSingletonParamGroup::singletonGroupType
            && element->subType() == subType)
            return static_cast<QParamGroup*>(element);
    }
    return nullptr;
}

QProjectFiles QDefinitions::files() const
{
    QProjectFiles files;
    files.baseDir = m_baseDirectory;
    switch (m_type) {
    case ptStage:
        if (const QParamGroup* bgdef = group(gstBgDef)) {
            // A stage names its sprites from the engine's folder, where the stage itself is in "stages".
            static const QRegularExpression stagesFolder(QStringLiteral("^/?stages/"),
                                                         QRegularExpression::CaseInsensitiveOption);
            files.sprites = withSlashes(bgdef->paramAsString(idSpr, QString())).remove(stagesFolder);
        }
        return files;
    case ptFont:
        if (const QParamGroup* def = group(gstDef))
            files.sprites = withSlashes(def->paramAsString(idFontFile, QString()));
        return files;
    case ptStoryboard:
        if (const QParamGroup* scenedef = group(gstSceneDef))
            files.sprites = withSlashes(scenedef->paramAsString(idSpr, QString()));
        return files;
    default:
        break;
    }

    QParamGroup* fileGroup = group(gstFiles);
    if (!fileGroup)
        return files;
    // The members in the order of the text: the order of state files is the author's.
    for (QTextElement* element = fileGroup->nextValid(); element && !(element->type() & QTextElement::headerBit);
         element = element->nextValid()) {
        if (element->groupType() != QGroupParam::paramGroupType || element->subType() != QFileParam::paramSubType)
            continue;
        const auto* param = static_cast<const QFileParam*>(element);
        if (param->group() != fileGroup)
            continue;
        const QString name = withSlashes(param->fileName());
        switch (param->id() & 0xFFFF) {
        case idSprite:
        case idSpr:
        case idSff:
            files.sprites = name;
            break;
        case idAnim:
            files.animations = name;
            break;
        case idSound:
            files.sounds = name;
            break;
        case idCmd:
            files.commands = name;
            break;
        case idStates:
            if (!files.states.contains(name))
                files.states.append(name);
            break;
        case idPalette:
            files.palettes[param->id() >> 16] = name;
            break;
        default:
            break;
        }
    }
    return files;
}

void QDefinitions::verTimeOut()
{
    setSyntaxVersion(m_version);
    if (QProject* owner = project()) {
        owner->commands()->setSyntaxVersion(m_version);
        for (int i = 0; i < owner->statesCount(); ++i)
            owner->states(i)->setSyntaxVersion(m_version);
    }
}

namespace {

/// The groups that make a DEF other than a character's; the order settles a
/// text with several of them.
const struct
{
    const char* group;
    const char* header;
    QProjectType type;
} kinds[] = {{"bgdef", "[BGdef]", ptStage},         {"scenedef", "[SceneDef]", ptStoryboard},
             {"def", "[Def]", ptFont},              {"titlebgdef", "[TitleBGdef]", ptMotif},
             {"lifebar", "[Lifebar]", ptFightFx}};

} // namespace

void QDefinitions::setType(QProjectType type)
{
    if (type == m_type || m_type != ptCharacter)
        return;
    for (const auto& kind : kinds) {
        if (kind.type != type)
            continue;
        const bool lastLineEmpty = document()->lastBlock().text().isEmpty();
        QElementTextCursor& edit = cursor();
        edit.setPosition(document()->characterCount() - 1);
        edit.insertText((lastLineEmpty ? QString() : QStringLiteral("\n")) + QLatin1String(kind.header)
                        + QLatin1Char('\n'));
        updateHierarchy();
        return;
    }
}

void QDefinitions::hierarchyUpdateEnd()
{
    const QProjectType previous = m_type;
    m_type = ptCharacter;
    for (const auto& kind : kinds) {
        if (sectionExists(QLatin1String(kind.group))) {
            m_type = kind.type;
            break;
        }
    }
    if (m_type != previous)
        emit typeChanged(project());
}

void QDefinitions::updateInternal(QList<QTextElementChange>& changes)
{
    QSyntaxTextEditor::updateInternal(changes);
    readInfo();
}

void QDefinitions::readInfo()
{
    const QParamGroup* info = group(gstInfo);
    QString name;
    unsigned int version = 0;
    QSize localCoord(defaultLocalWidth, defaultLocalHeight);
    if (info) {
        name = info->paramAsString(idName, QString());
        if (const auto* param = static_cast<const QVersionParam*>(info->parameter(idMugenVersion, QVersionParam::paramSubType)))
            version = param->version();
        if (const auto* param = static_cast<const QIntNParam*>(info->parameter(idLocalCoord, QIntNParam::paramSubType))) {
            if (param->count() == 2)
                localCoord = QSize(param->value(0), param->value(1));
        }
    }
    m_localCoord = localCoord;
    if (name != m_name) {
        m_name = name;
        emit nameChanged(project(), m_name);
    }
    if (version != m_version) {
        m_version = version;
        // The interface follows at once; the checkers of every document wait for the typing to stop.
        m_versionTimer.start();
        emit versionChanged(project());
    }
}

QString QDefinitions::discardMsg() const
{
    return tr("Do you really want to discard the changes made in the definitions?");
}
