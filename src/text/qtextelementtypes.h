#pragma once

/// The class bits of a text element (0x10 for a parameter line).
using QTextElementType = unsigned int;
/// What kind of value or group an element of one class is: for parameters
/// 1 string, 2 bare value, 3 int, 4 list of ints, 5 float, 6 list of floats,
/// 7 command, 8 version, 9 file; groups use 0x10 and up.
using QTextElementSubType = unsigned int;
/// Names a parameter: the low 16 bits the key, the high 16 bits an index
/// within a numbered family of file keys.
using QGroupParamID = unsigned int;
