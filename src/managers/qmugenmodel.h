#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>

/// One configured engine installation.
struct QMugenInfo
{
    QString name;
    QString executable;
    QString parameters;
    QString icon;

    bool operator==(const QMugenInfo& other) const
    {
        return name == other.name && executable == other.executable
            && parameters == other.parameters && icon == other.icon;
    }
};

/// The list of engine installations the author can start a project in.
class QMugenModel : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QMugenModel(QObject* parent = nullptr);

    const QList<QMugenInfo>& mugens() const { return m_mugens; }
    void addMugen(const QMugenInfo& info);
    void setMugen(int row, const QMugenInfo& info);
    void removeMugen(int row);
    void moveMugenUp(int row);
    void clearMugens();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

protected:
    QList<QMugenInfo> m_mugens;
};
