#pragma once

// The real main window for a window test, as an author drives it: made on a
// program folder of its own with a recording prompt, shown and active, and
// mouse input sent as a hand makes it. Header only: the test support
// library links no widgets.

#include "app/mainwindow.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "windowmanagers.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

class MainWindowSession
{
public:
    /// Makes, sizes and shows the window; false when it could not be shown.
    bool open(const QSize& size)
    {
        if (!windowManagers::create(m_programDir.path()))
            return false;
        m_prompt = std::make_unique<QRecordingPrompt>();
        m_window = std::make_unique<MainWindow>();
        m_window->resize(size);
        m_window->show();
        if (!QTest::qWaitForWindowExposed(m_window.get()))
            return false;
        // Keys reach the editors' shortcuts only in the active window; a bare X server may not grant it,
        // and the pictures for review taken there need no keys.
        QApplication::setActiveWindow(m_window.get());
        if (!QTest::qWaitForWindowActive(m_window.get(), 1000))
            qInfo("The window is not active: shortcut keys will not reach it.");
        return true;
    }

    void close()
    {
        m_window.reset();
        m_prompt.reset();
        windowManagers::destroy();
    }

    MainWindow* window() const { return m_window.get(); }
    QRecordingPrompt* prompt() const { return m_prompt.get(); }

private:
    QTemporaryDir m_programDir;
    std::unique_ptr<QRecordingPrompt> m_prompt;
    std::unique_ptr<MainWindow> m_window;
};

namespace session {

inline void mouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, QPointF(at), widget->mapToGlobal(QPointF(at)),
        type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

/// A left drag in steps, as a hand makes it.
inline void drag(QWidget* widget, const QPoint& from, const QPoint& to)
{
    mouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= 4; ++step)
        mouse(widget, QEvent::MouseMove, from + (to - from) * step / 4, Qt::LeftButton);
    mouse(widget, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

/// Handles the next modal dialog when it shows: `act` does its part, then the
/// dialog is accepted; the title it had goes to `title`.
inline void answerNextDialog(QString* title, std::function<void(QDialog*)> act = nullptr)
{
    QTimer::singleShot(50, [title, act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return answerNextDialog(title, act);
        *title = dialog->windowTitle();
        if (act)
            act(dialog);
        dialog->accept();
    });
}

/// The whole content of a file; empty when it can't be read.
inline QByteArray bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Copies the engine's kfm into `folder`, so a session may save over it; the
/// path of the copy's DEF, or empty when the real data hold no kfm.
inline QString copyOfKfm(const QString& folder)
{
    const QDir source(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm"));
    if (!source.exists(QStringLiteral("kfm.def")) || !QDir().mkpath(folder))
        return QString();
    for (const QString& name : source.entryList(QDir::Files))
        if (!QFile::copy(source.filePath(name), folder + QLatin1Char('/') + name))
            return QString();
    return folder + QStringLiteral("/kfm.def");
}

} // namespace session
