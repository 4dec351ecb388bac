#include "tst_project.h"

#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"

#include <QtTest>

void TestProject::initTestCase()
{
    qRegisterMetaType<QProject*>();
    initCodecs();
    QProject::init();
    QVERIFY(QSyntaxTextEditor::initProperties(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data")));
}

QTEST_MAIN(TestProject)
