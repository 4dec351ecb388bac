#pragma once

/// Token codes of the engine's text lexer; they fit the six bits a token
/// word keeps for its code.
enum QMugenToken {
    tkEnd, tkNumber, tkIdent, tkString, tkUnknown,
    tkMinus, tkPlus, tkTimes, tkPower, tkDivide, tkModulo, tkDollar, tkComma, tkEqual,
    tkColon, tkLBrace, tkRBrace, tkTilde, tkLess, tkLessEqual, tkGreater, tkGreaterEqual,
    tkNot, tkNotEqual, tkBitAnd, tkAnd, tkBitOr, tkOr, tkBitXor, tkXor,
    tkLParen, tkRParen, tkLBracket, tkRBracket,
};
