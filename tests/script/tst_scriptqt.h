#pragma once

#include <QObject>
#include <QString>

class QScript;

class TestScriptQt : public QObject
{
    Q_OBJECT

private slots:
    void rectFamily();
    void objectVariantTimerRegExp();
    void datesAndBytes();
    void painterFamily();
    void fileFamily();

private:
    /// Runs `code` in `script`, failing the test with the Lua message when it raises.
    static bool run(QScript& script, const char* code);
    /// The Lua message of `code`, which must raise.
    static QString failure(QScript& script, const QString& code);
    static double number(QScript& script, const char* name);
};
