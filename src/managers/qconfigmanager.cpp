#include "qconfigmanager.h"

#include "qxmlfile.h"
#include "util/qxmlparser.h"

#include <QCoreApplication>

QConfigManager* configMan = nullptr;

namespace {

struct Default
{
    const char* key;
    QVariant value;
};

// Integers that are read as booleans ("save_only_modified", "onion_effect")
// stay integers here: once a file is read every value is a string anyway.
const QList<Default>& defaults()
{
    static const QList<Default> table = {
        {"language", QStringLiteral("en-us")},
        {"preset", QStringLiteral("Classic")},
        {"iconset", QString()},
        {"stylesheet", QString()},
        {"colorset", QString()},
        {"use_opengl", false},
        {"zoom_level", 2},
        {"main_axis_x", 150},
        {"main_axis_y", 250},
        {"zoom_mode", 1},
        {"save_only_modified", 1},
        {"cache_type", 0},
        {"cache_compression", true},
        {"undo_limit", 64},
        {"max_history", 30},
        {"onion_effect", 1},
        {"onion_opacity", 100},
        {"thumb_size", 64},
        {"switch_to_imgpal", true},
        {"confirm_delete", true},
        {"confirm_close", true},
        {"confirm_editimg", true},
        {"show_addsprite_dialog", true},
        {"show_addsound_dialog", true},
        {"show_addpalette_dialog", true},
        {"backup_onload", false},
        {"ask_save_palettes", true},
        {"show_trans_color", false},
        {"sort_file_names", true},
        {"enable_file_watcher", false},
        {"show_spr_cross", true},
        {"show_anim_cross", true},
        {"show_left_panel", true},
        {"show_right_panel", true},
        {"show_sctrl_list", true},
        {"show_rulers", true},
        {"show_clsn1", true},
        {"show_clsn2", true},
        {"show_clsn_def1", true},
        {"show_clsn_def2", true},
        {"background_type", 1},
        {"background_x", -213},
        {"background_y", -208},
        {"background_file", QString()},
        {"crosshair_type", 0},
        {"crosshair_sprite", QString()},
        {"crosshair_animation", QString()},
        {"crosshair_extra", QString()},
        {"default_codepage", 0},
        {"font_name", QStringLiteral("Courier")},
        {"font_size", 10},
        {"code_line_numbers", true},
        {"code_highlight_line", true},
        {"code_highlight_blocks", false},
        {"code_folding_markers", true},
        {"code_paren_matching", true},
        {"auto_expand_tree", false},
        {"window_left", 0},
        {"window_top", 0},
        {"window_width", 580},
        {"window_height", 750},
        {"window_state", 0},
        {"clsn_opacity", 100},
    };
    return table;
}

const QString mugenPrefix = QStringLiteral("mugen_");

QString mugenKey(int row, const char* field)
{
    return QStringLiteral("mugen_%1_%2").arg(row).arg(QLatin1String(field));
}

} // namespace

QConfigManager::QConfigManager(QObject* parent)
    : QMugenModel(parent)
{
    loadDefaults();
}

int QConfigManager::defaultCount()
{
    return defaults().size();
}

QString QConfigManager::exportFilter()
{
    return QCoreApplication::translate("QConfigManager", "Pugilforge 3 Configuration (*.pfc3)");
}

void QConfigManager::loadDefaults()
{
    m_values.clear();
    for (const Default& entry : defaults())
        m_values.insert(QLatin1String(entry.key), entry.value);
}

bool QConfigManager::fromFile(const QString& fileName)
{
    loadDefaults();
    const bool read = readXmlEntries(fileName, QStringLiteral("configuration"), [this](QXmlParser& xml) {
        if (xml.name() != QLatin1String("config"))
            return;
        const QXmlStreamAttributes attributes = xml.attributes();
        m_values.insert(attributes.value(QLatin1String("name")).toString(),
                        attributes.value(QLatin1String("value")).toString());
    });
    // Engines read before a fault are kept, like the other values.
    readMugens();
    return read;
}

bool QConfigManager::importConfiguration(const QString& fileName)
{
    clearMugens();
    return fromFile(fileName);
}

void QConfigManager::readMugens()
{
    for (int row = 0; m_values.contains(mugenKey(row, "name")); ++row) {
        QMugenInfo info;
        info.name = m_values.value(mugenKey(row, "name")).toString();
        info.executable = m_values.value(mugenKey(row, "exe")).toString();
        info.icon = m_values.value(mugenKey(row, "icon")).toString();
        info.parameters = m_values.value(mugenKey(row, "params")).toString();
        addMugen(info);
    }
}

void QConfigManager::flattenMugens()
{
    for (auto it = m_values.begin(); it != m_values.end();) {
        if (it.key().startsWith(mugenPrefix))
            it = m_values.erase(it);
        else
            ++it;
    }
    for (int row = 0; row < m_mugens.size(); ++row) {
        const QMugenInfo& info = m_mugens.at(row);
        m_values.insert(mugenKey(row, "name"), info.name);
        m_values.insert(mugenKey(row, "exe"), info.executable);
        m_values.insert(mugenKey(row, "icon"), info.icon);
        m_values.insert(mugenKey(row, "params"), info.parameters);
    }
}

bool QConfigManager::toFile(const QString& fileName)
{
    flattenMugens();
    QXmlFileWriter file(fileName, QStringLiteral("configuration"));
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it)
        file.writeEntry(QStringLiteral("config"),
                        {{QStringLiteral("name"), it.key()}, {QStringLiteral("value"), it.value().toString()}});
    return file.commit();
}
