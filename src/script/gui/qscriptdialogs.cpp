#include "qscriptdialogs.h"

#include "script/qluaobject.h"
#include "script/qscript.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

void installScriptDialogs(QWidget* window)
{
    QPointer<QWidget> parent(window);
    QLuaDialogs& dialogs = QLuaDialogs::installed();
    dialogs.ask = [parent](const QString& title, const QString& label, const QString& value) {
        bool ok = false;
        const QString answer = QInputDialog::getText(parent, title, label, QLineEdit::Normal, value, &ok);
        return ok ? answer : QString();
    };
    dialogs.saveFileName = [parent](const QString& title, const QString& filter) {
        return QFileDialog::getSaveFileName(parent, title, QString(), filter);
    };
    dialogs.message = [parent](const QString& title, const QString& text) {
        QMessageBox::information(parent, title, text);
    };
    QScript::setReporter([parent](const QString& title, const QString& text) {
        QMessageBox::critical(parent, QCoreApplication::translate("QScript", title.toUtf8().constData()), text);
    });
}
