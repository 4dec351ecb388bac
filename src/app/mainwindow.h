#pragma once

#include <QMainWindow>
#include <memory>

namespace Ui {
class MainWindow;
}

/// The one window of the program: menus, the action list and, in time, the
/// project tabs and editors.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

public slots:
    void retranslate();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    std::unique_ptr<Ui::MainWindow> m_ui;
    /// The one sprite view the sprites and animations editors share.
    class QAnimSpriteWorkspace* m_animSprites = nullptr;
};
