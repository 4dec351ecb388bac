#include "qcolorsetmanager.h"

#include "qxmlfile.h"
#include "util/qxmlparser.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>

QColorsetManager* colorMan = nullptr;

namespace {

const QList<QColorsetManager::Item>& builtIn()
{
    static const QList<QColorsetManager::Item> items = {
        {QStringLiteral("back_start"), QT_TRANSLATE_NOOP("QColorsetManager", "Background start"), QColor(236, 240, 244)},
        {QStringLiteral("back_end"), QT_TRANSLATE_NOOP("QColorsetManager", "Background end"), QColor(196, 204, 214)},
        {QStringLiteral("clsn1def"), QT_TRANSLATE_NOOP("QColorsetManager", "CLSN 1 Default"), QColor(220, 30, 30)},
        {QStringLiteral("clsn2def"), QT_TRANSLATE_NOOP("QColorsetManager", "CLSN 2 Default"), QColor(30, 80, 220)},
        {QStringLiteral("block"), QT_TRANSLATE_NOOP("QColorsetManager", "Block header"), QColor(0, 0, 160)},
        {QStringLiteral("block_param"), QT_TRANSLATE_NOOP("QColorsetManager", "Block parameter"), QColor(0, 0, 255)},
        {QStringLiteral("block_sctrl"), QT_TRANSLATE_NOOP("QColorsetManager", "Block controller"), QColor(128, 0, 0)},
        {QStringLiteral("block_range"), QT_TRANSLATE_NOOP("QColorsetManager", "Block range"), QColor(244, 246, 250)},
        {QStringLiteral("comment"), QT_TRANSLATE_NOOP("QColorsetManager", "Comments"), QColor(0, 128, 0), true},
        {QStringLiteral("constant"), QT_TRANSLATE_NOOP("QColorsetManager", "Constant"), QColor(160, 0, 160)},
        {QStringLiteral("trigger"), QT_TRANSLATE_NOOP("QColorsetManager", "Trigger"), QColor(0, 96, 160)},
        {QStringLiteral("line"), QT_TRANSLATE_NOOP("QColorsetManager", "Line highlight"), QColor(255, 250, 220)},
        {QStringLiteral("paren"), QT_TRANSLATE_NOOP("QColorsetManager", "Matched parenthesis"), QColor(255, 0, 0)},
        {QStringLiteral("paren_range"), QT_TRANSLATE_NOOP("QColorsetManager", "Matched parenthesis range"),
         QColor(232, 242, 255)},
        {QStringLiteral("literal"), QT_TRANSLATE_NOOP("QColorsetManager", "Parameter literal value"),
         QColor(160, 80, 0)},
    };
    return items;
}

} // namespace

QColorsetManager::QColorsetManager(const QString& directory, QObject* parent)
    : QAbstractListModel(parent)
    , QResourceDirectory(directory, QResourceDirectory::Files)
{
    m_items = builtIn();
}

void QColorsetManager::loadDefaults()
{
    beginResetModel();
    m_items = builtIn();
    endResetModel();
    emit changed();
}

QColorsetManager::Item* QColorsetManager::find(const QString& item)
{
    for (Item& entry : m_items) {
        if (entry.name == item)
            return &entry;
    }
    return nullptr;
}

bool QColorsetManager::load(const QString& name, bool isFile)
{
    const QString fileName = isFile ? name : fileOf(name);
    if ((!isFile && !contains(name)) || !QFile::exists(fileName))
        return false;
    static const QRegularExpression rgb(QStringLiteral("^(\\d{1,3})\\,(\\d{1,3})\\,(\\d{1,3})$"));
    beginResetModel();
    m_items = builtIn();
    const bool read = readXmlEntries(fileName, QStringLiteral("colorset"), [this](QXmlParser& xml) {
        const auto attributes = xml.attributes();
        const auto match = rgb.match(attributes.value(QLatin1String("value")));
        Item* item = find(attributes.value(QLatin1String("name")).toString());
        if (item && match.hasMatch()) {
            item->color = QColor(qMin(255, match.captured(1).toInt()), qMin(255, match.captured(2).toInt()),
                                 qMin(255, match.captured(3).toInt()));
            item->italic = attributes.value(QLatin1String("italic")) == QLatin1String("true");
        }
    });
    endResetModel();
    emit changed();
    return read;
}

bool QColorsetManager::save(const QString& name, bool isFile) const
{
    QXmlFileWriter file(isFile ? name : fileOf(name), QStringLiteral("colorset"));
    for (const Item& item : m_items) {
        file.writeEntry(QStringLiteral("color"),
                        {{QStringLiteral("name"), item.name},
                         {QStringLiteral("value"),
                          QStringLiteral("%1,%2,%3").arg(item.color.red()).arg(item.color.green()).arg(item.color.blue())}});
        if (item.italic)
            file.xml().writeAttribute(QStringLiteral("italic"), QStringLiteral("true"));
    }
    return file.commit();
}

QColor QColorsetManager::color(const QString& item) const
{
    for (const Item& entry : m_items) {
        if (entry.name == item)
            return entry.color;
    }
    return QColor();
}

bool QColorsetManager::italic(const QString& item) const
{
    for (const Item& entry : m_items) {
        if (entry.name == item)
            return entry.italic;
    }
    return false;
}

int QColorsetManager::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_items.size());
}

QVariant QColorsetManager::data(const QModelIndex& index, int role) const
{
    if (index.row() < 0 || index.row() >= m_items.size())
        return QVariant();
    const Item& item = m_items.at(index.row());
    if (role == Qt::DisplayRole)
        return QCoreApplication::translate("QColorsetManager", item.label);
    if (role == Qt::DecorationRole)
        return item.color;
    return QVariant();
}
