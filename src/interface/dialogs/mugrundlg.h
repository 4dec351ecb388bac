#pragma once

#include <QDialog>
#include <QString>

class QListView;
class QMugenModel;

/**
 * "Run in M.U.G.E.N.": picks one of the configured engines for a run. It
 * opens on the engine used last ("last_mugen" in the configuration), and
 * getExe() remembers the one taken.
 */
class MugRunDlg : public QDialog
{
    Q_OBJECT
public:
    MugRunDlg(QWidget* parent, QMugenModel* mugens);

    /// The chosen engine's executable; remembers its row as the last used.
    QString getExe();
    QString getParams() const;

    /**
     * Which engine a run uses: with none configured, says so and returns
     * false; with one, takes it without asking; with several, asks with this
     * dialog, and a refusal returns false.
     */
    static bool chooseEngine(QWidget* parent, QMugenModel* mugens, QString& executable, QString& parameters);

private:
    int currentRow() const;

    QMugenModel* m_mugens;
    QListView* m_list;
};
