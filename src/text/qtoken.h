#pragma once

/**
 * The code of a token as QTokenizer::getToken() returns it. The numbers are
 * stable: registries and saved match tables compare them directly.
 */
enum QToken : unsigned char {
    tokEnd = 0, ///< end of text (also an unterminated string)
    tokEndOfLine = 1, ///< a line feed, after any blank and comment lines
    tokOther = 2, ///< any character no other code stands for
    tokIdentifier = 3,
    tokInteger = 4,
    tokFloat = 5,
    tokString = 6, ///< text between double quotes, quotes left out
    tokPlus = 7,
    tokMinus = 8,
    tokSlash = 9,
    tokPercent = 10,
    tokStar = 11,
    tokPower = 12, ///< **
    tokAmp = 13,
    tokAnd = 14, ///< &&
    tokPipe = 15,
    tokOr = 16, ///< ||
    tokCaret = 17,
    tokXor = 18, ///< ^^
    tokAssign = 19,
    tokLess = 20,
    tokLessEqual = 21,
    tokGreater = 22,
    tokGreaterEqual = 23,
    tokNot = 24,
    tokNotEqual = 25,
    tokComma = 26,
    tokLeftParen = 27,
    tokRightParen = 28,
    tokLeftBrace = 29,
    tokRightBrace = 30,
    tokLeftBracket = 31,
    tokRightBracket = 32,
    tokColon = 33,
    tokTilde = 34,
    tokDollar = 35
};
