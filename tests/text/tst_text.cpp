#include "clirunner.h"
#include "realdata.h"
#include "text/paramreg.h"
#include "text/qcodecs.h"
#include "text/qcommandparam.h"
#include "text/qfileparam.h"
#include "text/qfloatnparam.h"
#include "text/qfloatparam.h"
#include "text/qintnparam.h"
#include "text/qintparam.h"
#include "text/qstringparam.h"
#include "text/qtokenizer.h"
#include "text/qvalueparam.h"
#include "text/qversionparam.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPoint>
#include <QPointF>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QVector3D>

#include <QtTest>

namespace {

/// Every token of `text` as "code:text", ends of line and text as bare codes.
QString describe(const QString& text)
{
    QTokenizer tokenizer(text);
    QStringList parts;
    for (int guard = 0; guard < 10000; ++guard) {
        const QToken id = tokenizer.getToken();
        if (id == tokEnd || id == tokEndOfLine)
            parts.append(QString::number(id));
        else
            parts.append(QStringLiteral("%1:%2").arg(int(id)).arg(tokenizer.getTokenString()));
        if (id == tokEnd)
            break;
    }
    return parts.join(u' ');
}

QList<QTextToken> lineTokens(const QString& line)
{
    QTokenizer tokenizer(line);
    return QTextToken::readLine(tokenizer);
}

/// Offers a line to a registry entry as the element tree does: each token,
/// then a closing end of line.
bool matches(const ParamRegBase& reg, const QString& line)
{
    const QList<QTextToken> tokens = lineTokens(line);
    unsigned int index = 0;
    for (const QTextToken& token : tokens) {
        if (!reg.matchToken(index++, token))
            return false;
    }
    return reg.matchToken(index, QTextToken { tokEndOfLine, 0, QString() });
}

template <class T> void take(T& param, const QString& line)
{
    param.takeValue(lineTokens(line), line);
}

template <class T> T* makeParam(const char* key)
{
    static QRecycleAllocator<T> pool;
    ParamReg<T> reg(QLatin1String(key), 7, &pool);
    return static_cast<T*>(reg.create());
}

} // namespace

class TestText : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initCodecs(); }

    void tokens_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("leading dot doubles its digit") << "x = .5"
                                                       << "3:x 19:= 5:0.55 0";
        QTest::newRow("leading dot, two digits") << ".25"
                                                 << "5:0.225 0";
        QTest::newRow("minus dot") << "-.5"
                                   << "5:-0.5 0";
        QTest::newRow("negative after =") << "a=-1"
                                          << "3:a 19:= 4:-1 0";
        QTest::newRow("minus between names") << "a-b"
                                             << "3:a 8:- 3:b 0";
        QTest::newRow("minus before digit joins it") << "a-5"
                                                     << "3:a 4:-5 0";
        QTest::newRow("float then name") << "1.5e 2."
                                         << "5:1.5 3:e 5:2. 0";
        QTest::newRow("expression")
            << "(var(3)*2)>=10&&!time"
            << "27:( 3:var 27:( 4:3 28:) 11:* 4:2 28:) 23:>= 4:10 14:&& 24:! 3:time 0";
        QTest::newRow("operators")
            << "+ - / % * ** & && | || ^ ^^ = < <= > >= ! != , ( ) { } [ ] : ~ $"
            << "7:+ 8:- 9:/ 10:% 11:* 12:** 13:& 14:&& 15:| 16:|| 17:^ 18:^^ 19:= 20:< "
               "21:<= 22:> 23:>= 24:! 25:!= 26:, 27:( 28:) 29:{ 30:} 31:[ 32:] 33:: 34:~ 35:$ 0";
        QTest::newRow("triple star") << "***"
                                     << "12:** 11:* 0";
        QTest::newRow("identifier chars") << "pos.x_2 ökö"
                                          << "3:pos.x_2 3:ökö 0";
        QTest::newRow("other characters") << "_x @ . #"
                                          << "2:_ 3:x 2:@ 2:. 2:# 0";
        QTest::newRow("string") << "\"a b\" x"
                                << "6:a b 3:x 0";
        QTest::newRow("string keeps line feeds") << "\"a\nb\""
                                                 << "6:a\nb 0";
        QTest::newRow("unterminated string ends the text") << "a = \"abc\nb = 1"
                                                           << "3:a 19:= 0";
        QTest::newRow("comment after value") << "1 ; one"
                                             << "4:1 0";
        QTest::newRow("blanks and cr") << "ab\tcd\r\nx"
                                       << "3:ab 3:cd 1 3:x 0";
        QTest::newRow("blank and comment lines fold into one end of line") << "a\n\n; c\n   \nb"
                                                                           << "3:a 1 3:b 0";
        QTest::newRow("line ends at end of text") << "a\n"
                                                  << "3:a 1 0";
        QTest::newRow("command") << "~30D, /F, >a+b, $B"
                                 << "34:~ 4:30 3:D 26:, 9:/ 3:F 26:, 22:> 3:a 7:+ 3:b 26:, 35:$ 3:B 0";
    }

    void tokens()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(describe(text), expected);
    }

    void tokenPositionsAndConversions()
    {
        const QString tokenizerText = QStringLiteral("abc = 12\n  \"s\" 99999999999 0.1 .5 -7");
        QTokenizer tokenizer(tokenizerText);
        const QList<QTextToken> first = QTextToken::readLine(tokenizer);
        QCOMPARE(first.size(), 3);
        QCOMPARE(first.at(0).column, 0);
        QCOMPARE(first.at(1).column, 4);
        QCOMPARE(first.at(2).column, 6);
        QCOMPARE(tokenizer.line(), 2);

        QCOMPARE(tokenizer.getToken(), tokString);
        QCOMPARE(tokenizer.column() - int(tokenizer.getTokenString().size()), 4); // one past the text's start
        QCOMPARE(tokenizer.getToken(), tokInteger);
        QCOMPARE(tokenizer.getTokenInt(), 0); // out of range converts to 0
        QCOMPARE(tokenizer.getToken(), tokFloat);
        QCOMPARE(tokenizer.getTokenFloat(), 0.1f);
        QCOMPARE(tokenizer.getToken(), tokFloat);
        QCOMPARE(tokenizer.getTokenFloat(), 0.55f);
        QCOMPARE(tokenizer.getToken(), tokInteger);
        QCOMPARE(tokenizer.getTokenInt(), -7);
        QCOMPARE(tokenizer.getToken(), tokEnd);
        QCOMPARE(tokenizer.getToken(), tokEnd);

        const QString longName = QString(600, u'n');
        const QString cutText = longName + QStringLiteral(" ;") + QString(700, u'c');
        QTokenizer cut(cutText);
        QCOMPARE(cut.getToken(), tokIdentifier);
        QCOMPARE(cut.getTokenString(), longName.left(QTokenizer::bufferSize));
        QCOMPARE(cut.getToken(), tokEnd);
        QCOMPARE(cut.getComment().size(), QTokenizer::bufferSize);

        const QString nothing;
        QTokenizer empty(nothing);
        QCOMPARE(empty.getToken(), tokEnd);
        QVERIFY(!empty.hasComment());
    }

    void comments()
    {
        const QString keptText = QStringLiteral("; hello\nx");
        QTokenizer kept(keptText);
        QCOMPARE(kept.getToken(), tokEndOfLine);
        QVERIFY(kept.hasComment());
        QCOMPARE(kept.getComment(), QStringLiteral(" hello"));
        QCOMPARE(kept.keptComment(), QStringLiteral(" hello"));
        QCOMPARE(kept.getToken(), tokIdentifier);
        QVERIFY(!kept.hasComment()); // the scratch speaks only of the last call
        QCOMPARE(kept.keptComment(), QStringLiteral(" hello"));

        const QString rulerText = QStringLiteral("; ------\nx");
        QTokenizer ruler(rulerText);
        QCOMPARE(ruler.getToken(), tokEndOfLine);
        QVERIFY(ruler.hasComment());
        QCOMPARE(ruler.getComment(), QStringLiteral(" ------"));
        QVERIFY(ruler.keptComment().isEmpty());

        const QString fiveDashesText = QStringLiteral(";-----\n");
        QTokenizer fiveDashes(fiveDashesText);
        QCOMPARE(fiveDashes.getToken(), tokEndOfLine);
        QCOMPARE(fiveDashes.keptComment(), QStringLiteral("-----"));

        const QString atEndText = QStringLiteral("x ; last");
        QTokenizer atEnd(atEndText);
        QCOMPARE(atEnd.getToken(), tokIdentifier);
        QCOMPARE(atEnd.getToken(), tokEnd);
        QVERIFY(atEnd.hasComment());
        QCOMPARE(atEnd.getComment(), QStringLiteral(" last"));
        QVERIFY(atEnd.keptComment().isEmpty());

        const QString runText = QStringLiteral("; first\n; second\nx");
        QTokenizer run(runText);
        QCOMPARE(run.getToken(), tokEndOfLine);
        QCOMPARE(run.keptComment(), QStringLiteral(" first"));
        QCOMPARE(run.getComment(), QStringLiteral(" second"));

        const QString forgottenText = QStringLiteral("; first\n\nx");
        QTokenizer forgotten(forgottenText);
        QCOMPARE(forgotten.getToken(), tokEndOfLine);
        QVERIFY(forgotten.keptComment().isEmpty());

        const QString trailingText = QStringLiteral("a = 1 ; the value\nb");
        QTokenizer trailing(trailingText);
        QCOMPARE(describe(QStringLiteral("a = 1 ; the value\nb")), QStringLiteral("3:a 19:= 4:1 1 3:b 0"));
        for (int i = 0; i < 4; ++i)
            trailing.getToken();
        QCOMPARE(trailing.keptComment(), QStringLiteral(" the value"));
        QCOMPARE(trailing.line(), 2);
    }

    void skippingLines()
    {
        const QString nextText = QStringLiteral("abc def\nx");
        QTokenizer next(nextText);
        QCOMPARE(next.getToken(), tokIdentifier);
        QCOMPARE(next.nextLine(), tokEndOfLine);
        QCOMPARE(next.line(), 2);
        QCOMPARE(next.getToken(), tokIdentifier);
        QCOMPARE(next.getTokenString(), QStringLiteral("x"));

        const QString toLineEndText = QStringLiteral("junk \"here\nnext");
        QTokenizer toLineEnd(toLineEndText);
        QCOMPARE(toLineEnd.skipLine(u'\n'), tokEndOfLine);
        QCOMPARE(toLineEnd.getToken(), tokIdentifier);

        QString text;
        const QString collectText = QStringLiteral("Statedef 200]x");
        QTokenizer collect(collectText);
        QCOMPARE(collect.skipLine(text, u']'), tokRightBracket);
        QCOMPARE(text, QStringLiteral("Statedef 200"));
        QCOMPARE(collect.getToken(), tokIdentifier);

        const QString commentedText = QStringLiteral("name here ; c ]x");
        QTokenizer commented(commentedText);
        QCOMPARE(commented.skipLine(text, u']'), tokRightBracket);
        QCOMPARE(text, QStringLiteral("name here "));

        const QString noStopText = QStringLiteral("a\nb");
        QTokenizer noStop(noStopText);
        QCOMPARE(noStop.skipLine(u'#'), tokEnd);
        QCOMPARE(noStop.line(), 2);
    }

    void matching_data()
    {
        QTest::addColumn<uint>("subType");
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("string") << 1u << "name = \"Kung Fu Man\"" << true;
        QTest::newRow("string, key in other case") << 1u << "NAME = \"x\"" << true;
        QTest::newRow("string unquoted") << 1u << "name = KFM" << false;
        QTest::newRow("string and more") << 1u << "name = \"a\" b" << false;
        QTest::newRow("other key") << 1u << "names = \"a\"" << false;
        QTest::newRow("no =") << 1u << "name \"a\"" << false;
        QTest::newRow("value") << 2u << "name = S" << true;
        QTest::newRow("value number") << 2u << "name = 1" << false;
        QTest::newRow("int") << 3u << "name = 1000 ; hp" << true;
        QTest::newRow("int negative") << 3u << "name = -5" << true;
        QTest::newRow("int float") << 3u << "name = 1.5" << false;
        QTest::newRow("int pair") << 3u << "name = 1, 2" << false;
        QTest::newRow("int empty") << 3u << "name =" << false;
        QTest::newRow("ints") << 4u << "name = 1, 2, 3" << true;
        QTest::newRow("ints single") << 4u << "name = 1" << true;
        QTest::newRow("ints float later") << 4u << "name = 1, 2.5" << true;
        QTest::newRow("ints float first") << 4u << "name = 1.5, 2" << false;
        QTest::newRow("ints no comma") << 4u << "name = 1 2" << false;
        QTest::newRow("ints double comma") << 4u << "name = 1,,2" << false;
        QTest::newRow("ints trailing comma") << 4u << "name = 1," << true;
        QTest::newRow("float") << 5u << "name = 2" << true;
        QTest::newRow("float dot") << 5u << "name = .5" << true;
        QTest::newRow("float name") << 5u << "name = x" << false;
        QTest::newRow("floats") << 6u << "name = 1.5, -2" << true;
        QTest::newRow("floats word") << 6u << "name = 1.5, x" << false;
        QTest::newRow("command passes all") << 7u << "name = ~D, DF, x" << true;
        QTest::newRow("file passes empty") << 9u << "name =" << true;
        QTest::newRow("file needs key") << 9u << "sprite = a" << false;
    }

    void matching()
    {
        QFETCH(uint, subType);
        QFETCH(QString, line);
        QFETCH(bool, accepted);
        struct Reg : ParamRegBase
        {
            using ParamRegBase::ParamRegBase;
            QGroupParam* create() override { return nullptr; }
        } reg(QStringLiteral("name"), 1, subType);
        QCOMPARE(matches(reg, line), accepted);
        QCOMPARE(reg.type(), 0x10u);
        QCOMPARE(reg.subType(), subType);
    }

    void registry()
    {
        QRecycleAllocator<QIntParam> pool;
        ParamReg<QIntParam> reg(QStringLiteral("Life"), 0x21, &pool);
        QCOMPARE(reg.subType(), 3u);
        QCOMPARE(reg.beginsWith(), 0x4C06u);
        QGroupParam* param = reg.create();
        QCOMPARE(param->key(), QStringLiteral("Life"));
        QCOMPARE(param->id(), 0x21u);
        QCOMPARE(param->subType(), 3u);
        QCOMPARE(param->groupType(), 0x10u);
        pool.clean(static_cast<QIntParam*>(param));
        QCOMPARE(reg.create(), param); // taken back from the free list
        QCOMPARE(pool.allocated(), 1);

        QCOMPARE(ParamReg<QIntParam>(QStringLiteral("3d"), 1, &pool).beginsWith(), 2u);
        QCOMPARE(ParamReg<QIntParam>(QStringLiteral("ñame"), 1, &pool).beginsWith(), 0xD106u);
        QCOMPARE(ParamReg<QIntParam>(QStringLiteral("名前"), 1, &pool).beginsWith(), 6u);
    }

    void textValues()
    {
        QStringParam* name = makeParam<QStringParam>("name");
        take(*name, QStringLiteral("NAME = \"Kung Fu Man\""));
        QCOMPARE(name->getValue(), QVariant(QStringLiteral("Kung Fu Man")));
        name->setString(QStringLiteral("Ryu"));
        QCOMPARE(name->writtenLine(), QStringLiteral("name = \"Ryu\"")); // registered spelling of the key
        QCOMPARE(name->string(), QStringLiteral("Ryu"));

        QValueParam* type = makeParam<QValueParam>("type");
        take(*type, QStringLiteral("type = S"));
        QCOMPARE(type->value(), QStringLiteral("S"));
        type->setValue(QStringLiteral("A"));
        QCOMPARE(type->writtenLine(), QStringLiteral("type = A"));

        QFileParam* file = makeParam<QFileParam>("sprite");
        const QString spaced = QStringLiteral("sprite = my sprites/kfm 2.sff ; the sprites");
        take(*file, spaced);
        QCOMPARE(file->fileName(), QStringLiteral("my sprites/kfm 2.sff"));
        take(*file, QStringLiteral("st = chars/kfm-1/kfm.cns"));
        QCOMPARE(file->getValue(), QVariant(QStringLiteral("chars/kfm-1/kfm.cns")));
        take(*file, QStringLiteral("anim = kfm.air;x"));
        QCOMPARE(file->fileName(), QStringLiteral("kfm.air"));
        take(*file, QStringLiteral("sprite ="));
        QVERIFY(file->fileName().isEmpty());
    }

    void numberValues()
    {
        QIntParam* life = makeParam<QIntParam>("life");
        take(*life, QStringLiteral("life = 1000"));
        QCOMPARE(life->getValue(), QVariant(1000));
        life->setValue(-3);
        QCOMPARE(life->writtenLine(), QStringLiteral("life = -3"));

        QFloatParam* scale = makeParam<QFloatParam>("x");
        take(*scale, QStringLiteral("x = .5"));
        QCOMPARE(scale->value(), double(0.55f));
        scale->setValue(1.0 / 3);
        QCOMPARE(scale->writtenLine(), QStringLiteral("x = 0.333333"));

        QIntNParam* size = makeParam<QIntNParam>("size");
        take(*size, QStringLiteral("size = 1, 2, 3"));
        QCOMPARE(size->getValue().toList(), (QList<QVariant> { 1, 2, 3 }));
        size->setValue(1, 9);
        QCOMPARE(size->writtenLine(), QStringLiteral("size = 1, 9, 3"));
        take(*size, QStringLiteral("size = 4, -5"));
        QCOMPARE(size->getValue(), QVariant(QPoint(4, -5)));
        // At the index equal to the count the value is stored but not written.
        size->setValue(2, 8);
        QCOMPARE(size->count(), 2);
        QCOMPARE(size->value(2), 8);
        QCOMPARE(size->writtenLine(), QStringLiteral("size = 4, -5"));
        size->setValue(4, 1);
        QCOMPARE(size->writtenLine(), QStringLiteral("size = 4, -5, 8, 0"));
        size->setValue(200, 1); // beyond the ten held: ignored
        QCOMPARE(size->count(), 4);
        take(*size, QStringLiteral("size = 7"));
        QCOMPARE(size->getValue(), QVariant(7));
        QCOMPARE(size->value(1), 0); // the walk reset the old values
        take(*size, QStringLiteral("size = 1,2,3,4,5,6,7,8,9,10,11,12"));
        QCOMPARE(size->count(), 10);
        QCOMPARE(size->value(9), 10);

        QFloatNParam* offset = makeParam<QFloatNParam>("offset");
        take(*offset, QStringLiteral("offset = 1, 2, 3, 4, 5, 6"));
        QCOMPARE(offset->count(), 4); // the walk stops at token 10
        take(*offset, QStringLiteral("offset = 1.5, -2, .5"));
        QCOMPARE(offset->getValue(), QVariant(QVector3D(1.5f, -2.f, 0.55f)));
        take(*offset, QStringLiteral("offset = 0.25, 2"));
        QCOMPARE(offset->getValue(), QVariant(QPointF(0.25, 2)));
        offset->setValue(0, 2.5);
        QCOMPARE(offset->writtenLine(), QStringLiteral("offset = 2.5, 2"));
        take(*offset, QStringLiteral("offset = 0.5"));
        QCOMPARE(offset->getValue(), QVariant(0.5));
    }

    void versions_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<uint>("version");
        QTest::addColumn<QString>("written");
        QTest::newRow("dated") << "mugenversion = 04,14,2002" << 0u << "mugenversion = 04,14,2002";
        QTest::newRow("1.0") << "mugenversion = 1.0" << 0x01000000u << "mugenversion = 1.0";
        QTest::newRow("1.1 with comment")
            << "MugenVersion = 1.1 ; new" << 0x01010000u << "mugenversion = 1.1";
        QTest::newRow("integer") << "mugenversion = 1" << 0u << "mugenversion = 04,14,2002";
        QTest::newRow("three parts") << "mugenversion = 1.0.1" << 0u << "mugenversion = 04,14,2002";
    }

    void versions()
    {
        QFETCH(QString, line);
        QFETCH(uint, version);
        QFETCH(QString, written);
        QVersionParam* param = makeParam<QVersionParam>("mugenversion");
        take(*param, line);
        QCOMPARE(param->version(), version);
        param->setVersion(version);
        QCOMPARE(param->writtenLine(), written);
        take(*param, written);
        QCOMPARE(param->getValue(), QVariant(version));
    }

    void commands_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("printed");
        QTest::addColumn<int>("length");
        QTest::newRow("motion") << "~D, DF, F, x"
                                << "~D, DF, F, x" << 4;
        QTest::newRow("release time is lost") << "~30D"
                                              << "~D" << 1;
        QTest::newRow("flags in fixed order") << ">~F, $>a"
                                              << "~>F, $>a" << 6;
        QTest::newRow("hold") << "/F"
                              << "/F" << 1;
        QTest::newRow("time printed behind hold") << "/~30a"
                                                  << "/30~a" << 1;
        QTest::newRow("buttons") << "x+y+z, a+s"
                                 << "x+y+z, a+s" << 2;
        QTest::newRow("direction before buttons") << "F+a"
                                                  << "Fa" << 1;
        QTest::newRow("diagonals") << "UB, DB, UF, DF"
                                   << "UB, DB, UF, DF" << 4;
        QTest::newRow("case-sensitive names") << "d, X"
                                              << ", " << 2;
        QTest::newRow("nothing known") << ""
                                       << "" << 1;
    }

    void commands()
    {
        QFETCH(QString, value);
        QFETCH(QString, printed);
        QFETCH(int, length);
        QCommandParam* param = makeParam<QCommandParam>("command");
        take(*param, QStringLiteral("command = ") + value);
        QCOMPARE(param->toString(), printed);
        QCOMPARE(param->getValue(), QVariant(printed));
        QCOMPARE(param->length(), length);
    }

    void commandElements()
    {
        QCommandParam* param = makeParam<QCommandParam>("command");
        take(*param, QStringLiteral("command = ~30D, /DF"));
        QCOMPARE(param->elements().size(), 2);
        const QCommandElement first = param->elements().at(0);
        QCOMPARE(first.flags, quint16(QCommandElement::FlagRelease));
        QCOMPARE(first.time, quint16(30));
        QCOMPARE(first.keys, quint32(QCommandElement::KeyD));
        QCOMPARE(param->elements().at(1).keys, quint32(10));
        QCOMPARE(param->elements().at(1).flags, quint16(QCommandElement::FlagHold));
    }

    void codecTable()
    {
        // The table resolves Qt's aliases only as far as asked: a codec's
        // index found first must stay its index once the whole table is read.
        initCodecs();
        const int sjis = codecIndex("sjis");
        QVERIFY(sjis > 0);
        QStringList before;
        for (int i = 1; i <= sjis; ++i)
            before.append(codecName(i));
        QVERIFY(codecCount() > sjis);
        QVERIFY(codecCount() > 10);
        QCOMPARE(codecName(0), QStringLiteral("System"));
        QCOMPARE(codecName(sjis), QStringLiteral("Shift_JIS"));
        QCOMPARE(codecIndex("Shift_JIS"), sjis);
        for (int i = 1; i <= sjis; ++i)
            QCOMPARE(codecName(i), before.at(i - 1));
        QCOMPARE(codecIndex("no-such-codec"), 0);
        QCOMPARE(codecIndex(nullptr), 0);
        QVERIFY(codecName(codecCount()).isEmpty());
        QVERIFY(codecName(-1).isEmpty());
        QSet<QString> names;
        for (int i = 1; i < codecCount(); ++i)
            names.insert(codecName(i));
        QCOMPARE(names.size(), codecCount() - 1); // one entry per codec
        QVERIFY(!names.contains(QStringLiteral("System")));
    }

    void detection_data()
    {
        QTest::addColumn<QByteArray>("codec");
        QTest::addColumn<QByteArray>("prefix");
        QTest::addColumn<QString>("text");
        const QString japanese = QStringLiteral(
            "[Info]\n; "
            "格闘ゲームのキャラクターです。作者は日本の愛好家で、技の名前も日本語で書かれています。\n"
            "name = \"カンフーマン\"\ndisplayname = \"カンフーマン\"\nauthor = \"山田太郎\"\n"
            "; 必殺技：波動拳、昇竜拳、竜巻旋風脚。コマンドは下、右下、右とパンチです。\n");
        const QString chinese = QStringLiteral(
            "[Info]\n; 这是一个格斗游戏角色。作者是中国的爱好者，所有的招式名称都用中文书写。\n"
            "name = \"功夫男\"\nauthor = \"张三\"\n; "
            "必杀技：气功波、升龙拳、旋风腿。指令是下、右下、右加拳。\n");
        const QString western = QStringLiteral(
            "[Info]\n; Personnage créé à Montréal — fenêtre, théâtre, élève, déjà vu, naïve.\n"
            "name = \"Größe Überraschung\"\nauthor = \"François Müller\"\n"
            "; Coût: 20 € pour le café; Straße, Mädchen, Brötchen, Ärger, Öl, süß, señor, año.\n");
        const QString korean = QStringLiteral("[Info]\n; 이것은 격투 게임 캐릭터입니다. 제작자는 한국의 "
                                              "애호가이며 모든 기술 이름은 한국어로 쓰여 있습니다.\n"
                                              "name = \"쿵푸맨\"\n; 필살기: 파동권, 승룡권, 용권선풍각. "
                                              "커맨드는 아래, 오른쪽 아래, 오른쪽과 펀치입니다.\n");
        QTest::newRow("CP949") << QByteArray("windows-949") << QByteArray() << korean;
        QTest::newRow("Shift-JIS") << QByteArray("Shift_JIS") << QByteArray() << japanese;
        QTest::newRow("GBK") << QByteArray("GBK") << QByteArray() << chinese;
        QTest::newRow("CP1252") << QByteArray("windows-1252") << QByteArray() << western;
        QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray() << japanese + chinese + western;
        QTest::newRow("UTF-8 with BOM") << QByteArray("UTF-8") << QByteArray("\xEF\xBB\xBF") << western;
    }

    void detection()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QByteArray, prefix);
        QFETCH(QString, text);
        const QByteArray data = prefix + QTextCodec::codecForName(codec)->fromUnicode(text);
        int used = -1;
        QCOMPARE(stringFromData(data, 0, &used), text);
        QVERIFY(used > 0);
        // The detected codec writes the text back to the same bytes.
        QCOMPARE(prefix + stringToData(text, used), data);

        // A confident detection is not overridden by the wanted codec.
        for (const char* other : { "windows-1252", "Shift_JIS", "KOI8-R" }) {
            int usedWithWish = -1;
            QCOMPARE(stringFromData(data, codecIndex(other), &usedWithWish), text);
            QCOMPARE(usedWithWish, used);
        }
    }

    void detectionFallback()
    {
        const int latin = codecIndex("windows-1252");
        int used = -1;
        QCOMPARE(stringFromData(QByteArray(), latin, &used), QString());
        QCOMPARE(used, latin);
        // ASCII fits every codec: the wanted one decides how the file is saved.
        QCOMPARE(stringFromData("a = 1\n", latin, &used), QStringLiteral("a = 1\n"));
        QCOMPARE(used, latin);
        QCOMPARE(getCodec("a = 1\n", unsigned(latin))->name(), QByteArray("windows-1252"));
        QCOMPARE(stringFromData("a = 1\n", 0, &used), QStringLiteral("a = 1\n"));
        QCOMPARE(used, 0);
        QCOMPARE(getCodec("a = 1\n", unsigned(codecCount()) + 5), QTextCodec::codecForLocale());
        QCOMPARE(stringFromData("a = 1\n", -4, &used), QStringLiteral("a = 1\n"));
        QCOMPARE(used, 0);
        QCOMPARE(stringToData(QStringLiteral("é"), 0),
            QTextCodec::codecForLocale()->fromUnicode(QStringLiteral("é")));
        QCOMPARE(stringToData(QStringLiteral("é"), latin), QByteArray("\xE9"));
    }

    void realTextFilesDecode()
    {
        PF_REQUIRE_REALDATA();
        const QStringList files = realDataFiles({ QStringLiteral("def"), QStringLiteral("air"),
            QStringLiteral("cmd"), QStringLiteral("cns"), QStringLiteral("st") });
        QVERIFY(!files.isEmpty());
        for (const QString& fileName : files) {
            QFile file(fileName);
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(fileName));
            const QByteArray data = file.readAll();
            int used = -1;
            const QString text = stringFromData(data, 0, &used);
            QVERIFY2(
                !text.contains(QChar::ReplacementCharacter), qPrintable(fileName + u' ' + codecName(used)));
            QVERIFY2(!text.startsWith(QChar::ByteOrderMark), qPrintable(fileName));
            // Every line tokenizes to its end.
            QTokenizer tokenizer(text);
            while (tokenizer.getToken() != tokEnd) { }
            QVERIFY2(tokenizer.line() >= text.count(u'\n'), qPrintable(fileName));
        }
    }

    void tokensCommand()
    {
        QTemporaryDir dir;
        const QString fileName = dir.filePath(QStringLiteral("kfm.cmd"));
        QFile file(fileName);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QTextCodec::codecForName("Shift_JIS")
                       ->fromUnicode(QStringLiteral("; コマンド：波動拳、昇竜拳、竜巻旋風脚\n[Command]\n"
                                                    "name = \"波動拳\"\ncommand = ~D, DF, F, x\n")));
        file.close();

        const CliResult tokens = runCli({ QStringLiteral("tokens"), fileName, QStringLiteral("--json") });
        QCOMPARE(tokens.exitCode, 0);
        const QJsonObject root = QJsonDocument::fromJson(tokens.out).object();
        QCOMPARE(root.value(QStringLiteral("encoding")).toString(), QStringLiteral("Shift_JIS"));
        const QJsonArray lines = root.value(QStringLiteral("lines")).toArray();
        QCOMPARE(lines.size(), 4);
        const QJsonArray nameTokens = lines.at(2).toObject().value(QStringLiteral("tokens")).toArray();
        QCOMPARE(nameTokens.size(), 3);
        QCOMPARE(
            nameTokens.at(2).toObject().value(QStringLiteral("text")).toString(), QStringLiteral("波動拳"));
        QCOMPARE(nameTokens.at(2).toObject().value(QStringLiteral("code")).toInt(), int(tokString));

        const CliResult missing = runCli({ QStringLiteral("tokens"), dir.filePath(QStringLiteral("missing.cmd")) });
        QCOMPARE(missing.exitCode, 1);
        QCOMPARE(missing.faultLines(), 1);
        QVERIFY(missing.err.contains("missing.cmd: "));
    }
};

QTEST_GUILESS_MAIN(TestText)
#include "tst_text.moc"
