#pragma once

#include "qmugensyntaxproperties.h"
#include "qsynmessagekind.h"
#include "qsyntaxprocessor.h"

#include <QTextCharFormat>

/**
 * Colours and checks the engine's text files (CNS, ST, CMD, AIR, DEF and the
 * stage, motif, storyboard and font definitions) for the engine version set
 * with setVersion(). Runs one line at a time: a recursive-descent parser
 * inside the line, and a block state that carries the section (and, inside a
 * controller, which controller) from line to line.
 *
 * Every finding is both an underline on the text and a QSynMsg of the line.
 * checkText() runs the same checks without a document, for the command line
 * and for tests; it gives the messages of each line.
 */
class QMugenSyntaxProcessor : public QSyntaxProcessor
{
    Q_OBJECT
public:
    /// `properties` must outlive the processor. Without `enableErrors` the
    /// processor only colours.
    QMugenSyntaxProcessor(QTextDocument* document, const QMugenSyntaxProperties* properties,
                          bool enableErrors = true);

    /// The messages of every line of `text`, checked from its first line.
    QVector<QSynMsgList> checkText(const QString& text);

protected:
    void highlightBlock(const QString& text) override;

private:
    enum Section {
        secNone, secInvalid, secStatedef, secState, secAction, secCommand, secDefaults,
        secRemap, secKeymap, secQuotes, secInfo, secFiles, secArcade, secData, secSize,
        secVelocity, secMovement, secCamera, secPlayerInfo, secBound, secScaling, secShadow,
        secReflection, secStageInfo, secMusic, secBg, secBgCtrl, secBgCtrlDef, secBgDef,
        secScene, secSceneDef, secDef, secFnt, secMotif,
    };
    enum ItemKind { ikTrigger, ikParameter, ikController };

    // Lexer (qmugensyntaxlexer.cpp).
    int nextToken();
    int tokenCode() const { return int(m_token & 0x3F); }
    int tokenStart() const { return int((m_token >> 6) & 0xFFFF); }
    int tokenLength() const { return int(m_token >> 22); }
    bool match(int code, const QTextCharFormat* format = nullptr);
    bool parseNum(int code, const QTextCharFormat* format = nullptr);
    struct LexerState
    {
        int pos;
        quint32 token;
        QString text;
        bool eot;
        int parentheses;
    };
    LexerState saveLexer() const;
    void restoreLexer(const LexerState& state);
    void colour(int column, int length, const QTextCharFormat& format);
    void colourToken(const QTextCharFormat& format);
    /// The raw text from the current token to a comment or the end, trimmed;
    /// the lexer moves behind it.
    QString takeRest(int& column, int& length);
    void skipLine();

    // Expressions and triggers (qmugenexpression.cpp).
    void parseExpression();
    void parseLogicExp();
    void parseBitExp();
    void parseAssignExp();
    void parseEqualExp();
    void parseLessMoreExp();
    void parsePlusMinusExp();
    void parseTimesOverModExp();
    void parseExponentExp();
    void parseValueExp();
    bool parseRedirection(const QString& name);
    void parseTriggerValue(const QSynInfo& info, const QString& name);
    bool parseComponent(const QSynInfo& info);
    bool parseWordList(const QSynInfo& info);
    bool parseNameArgument(const QSynInfo& info);
    bool matchKey(const QString& key, const QString& name, const QSynInfo& info, int& end);
    const QSynInfo* findKey(const QSynTable& table, const QString& key, int& end);
    void checkVersion(const QSynInfo& info, ItemKind kind, int column, int length);

    // Parameters and values (qmugenvalues.cpp).
    /// Checks a "key = value" line against `common`, then against `table`.
    bool parseParam(const QSynTable& table, const QString& controller, const QSynTable* common = nullptr);
    void parseParamValue(const QSynInfo& info);
    void parseShape(const QSynInfo& info);
    void parseTextValue(const QSynInfo& info, bool isValue);
    bool parseStrPosition(const QSynInfo& info);
    void paramNumError(int count);
    /// A word the engine reads by its first letter: silent when it is one of
    /// `words` or the start of one, a warning when its first letter stands
    /// for another word, `unknown` when its letter stands for none.
    void checkByLetter(const QStringList& words, const QString& value, QSynMessageKind unknown, int column,
                       int length);
    void expectEnd();

    // Lines and sections (qmugensyntaxprocessor.cpp, qmugensections.cpp).
    int processLine(const QString& text, int previousState);
    void parseHeader();
    void parseSectionLine();
    void parseStatedefLine();
    void parseStateLine();
    /// Reads "type = Name" of a section whose lines depend on its type: looks
    /// the type up, keeps it for the section's later lines, colours or
    /// reports it. The type's index, or -1 when unknown or unreadable.
    int parseTypeKey(QMugenSyntaxProperties::ControllerKind kind, QSynMessageKind unknownType, int& column,
                     int& length);
    void parseActionLine();
    void parseActionFrame();
    void parseCommandLine();
    void parseFixedKeys(const QStringList& keys, QSynMessageKind unknownMessage, QSynType type);
    void parseRemapLine();
    void parseTypedLine(QMugenSyntaxProperties::ControllerKind kind, QSynMessageKind unknownType);
    void parseTableLine(const char* table, const QString& title);
    void matchCmdKey(const QTextCharFormat* format);
    bool isBlockEnded(bool& isState);
    /// Whether the lines from `next` on, skipping blanks and comments, start
    /// with a header or end the text; `isState` tells whether it is a [State ...].
    static bool endsAt(QTextBlock next, bool& isState);
    /// Queues the line above the current one for checking again when the
    /// current line changed whether that line ends its section.
    void recheckLineAbove();
    /// The lowered keys of the lines above the current one, up to the section's header.
    QStringList keysAboveInBlock() const;
    static QString unprefixedKey(const QString& key);
    /// A group's lowered name without its language prefix, blanks simplified.
    static QString unprefixedGroup(const QString& name);

    // Findings.
    /// Reports a finding of `kind` over the span, in the class the kind has.
    void report(QSynMessageKind kind, int column, int length, const QStringList& arguments = {}, int count = -1);
    /// Reports a finding over the current token.
    void report(QSynMessageKind kind, const QStringList& arguments = {});
    void errorFmt(const QString& text, int column, int length);
    void warningFmt(const QString& text, int column, int length);
    void deprecateFmt(const QString& text, int column, int length);
    void underline(int column, int length, const QColor& colour);

    int section() const { return m_state & 0x3F; }
    void setSection(int section) { m_state = section; }
    // The block state: the section in bits 0-5, two flags, the controller's
    // index + 1 in bits 8-15, and from bit 16 which of its required
    // parameters the block has given so far.
    int controllerIndex() const { return ((m_state >> 8) & 0xFF) - 1; }
    void setControllerIndex(int index) { m_state = (m_state & 0xFF) | ((index + 1) << 8); }
    static constexpr int requiredShift = 16;
    static constexpr int maxRequired = 14;
    /// At the end of a state's block: a missing required parameter of its controller.
    void checkRequired(int length);
    static constexpr int hasTypeFlag = 0x40;
    static constexpr int hasTriggerFlag = 0x80;

    const QMugenSyntaxProperties* m_properties;
    bool m_enableErrors;

    const QString* m_text = nullptr;
    int m_pos = 0;
    quint32 m_token = 0;
    QString m_tokenText;
    bool m_eot = false;
    bool m_expression = false;
    bool m_inBlock = false;
    bool m_endsSection = false; ///< the line checked last ends its section
    int m_state = 0;
    QSynMsgList m_messages;
    QVector<QParenthesis> m_parentheses;
    int m_valueColumn = 0;
    int m_valueMessages = 0;
    const QStringList* m_lines = nullptr; ///< the text of checkText(), for looking ahead
    int m_lineIndex = 0;

    QTextCharFormat m_headerFormat;
    QTextCharFormat m_keyFormat;
    QTextCharFormat m_numberFormat;
    QTextCharFormat m_stringFormat;
    QTextCharFormat m_commentFormat;
    QTextCharFormat m_operatorFormat;
    QTextCharFormat m_triggerFormat;
    QTextCharFormat m_controllerFormat;
    QTextCharFormat m_valueFormat;
};
