// Arbitrary bytes through the lexer and the parameter values: decoded as a
// file is (detection included) and also taken as raw UTF-16, tokenized whole,
// with the line skips, and line by line through every parameter class, whose
// values are then written back. Nothing may crash or read out of bounds.
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

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace {

void tokenizeWhole(const QString& text, QChar stop)
{
    QTokenizer tokenizer(text);
    QString skipped;
    for (int round = 0; round < 100000; ++round) {
        QToken id = tokenizer.getToken();
        if (id == tokIdentifier && (round & 3) == 1)
            id = tokenizer.skipLine(skipped, stop);
        else if (id == tokInteger && (round & 3) == 2)
            id = tokenizer.skipLine(stop);
        else if (id == tokFloat)
            id = tokenizer.nextLine();
        tokenizer.getTokenString();
        tokenizer.getTokenInt();
        tokenizer.getTokenFloat();
        tokenizer.getComment();
        if (id == tokEnd)
            break;
    }
}

void updateParams(const QString& line, unsigned char seed)
{
    QTokenizer tokenizer(line);
    const QList<QTextToken> tokens = QTextToken::readLine(tokenizer);
    QStringParam string;
    QValueParam value;
    QIntParam integer;
    QIntNParam integers;
    QFloatParam number;
    QFloatNParam numbers;
    QCommandParam command;
    QVersionParam version;
    QFileParam file;
    for (QGroupParam* param : std::initializer_list<QGroupParam*> {
             &string, &value, &integer, &integers, &number, &numbers, &command, &version, &file }) {
        param->setup(QStringLiteral("key"), 1);
        param->takeValue(tokens, line);
        param->getValue();
    }
    string.setString(string.string());
    value.setValue(value.value());
    integer.setValue(integer.value());
    number.setValue(number.value());
    integers.setValue(seed % 12, integers.value(seed % 12) + 1);
    numbers.setValue(seed % 12, numbers.value(0) / 3);
    integers.getValue();
    numbers.getValue();
    version.setVersion(version.version());
    command.length();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool codecsReady = (initCodecs(), true);
    (void)codecsReady;
    if (size == 0)
        return 0;
    const unsigned char control = data[0];
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));

    int used = 0;
    const QString decoded = stringFromData(bytes, control, &used);
    stringToData(decoded, used);
    const QString raw(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / 2);
    const QChar stop = QLatin1Char("]\n;x"[control & 3]);

    for (const QString* text : { &decoded, &raw }) {
        tokenizeWhole(*text, stop);
        for (const QString& line : text->split(u'\n'))
            updateParams(line, control);
    }
    return 0;
}
