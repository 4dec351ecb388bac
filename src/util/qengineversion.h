#pragma once

#include <QString>

/**
 * Engine versions are one packed number, (major << 24) | (minor << 16) |
 * (third << 8) | fourth: 0 is "M.U.G.E.N. Beta", 0x01000000 is 1.0 and
 * 0x01010000 is 1.1. SFF file versions use the same packing.
 */
namespace engineVersion {

constexpr unsigned int beta = 0;
constexpr unsigned int v1_0 = 0x01000000;
constexpr unsigned int v1_1 = 0x01010000;

constexpr unsigned int pack(unsigned int major, unsigned int minor, unsigned int third = 0,
                            unsigned int fourth = 0)
{
    return (major << 24) | ((minor & 0xFF) << 16) | ((third & 0xFF) << 8) | (fourth & 0xFF);
}

/// How the status bar shows a version: "Beta" for 0, else "major.minor".
QString label(unsigned int version);
/// All four parts, as SFF versions are named: "1.0.1.0".
QString dotted(unsigned int version);

} // namespace engineVersion

/// Reads "major.minor[.third[.fourth]]" (surrounding blanks allowed); anything
/// else, the old date form "04,14,2002" included, is 0, the Beta.
unsigned int getVersion(const QString& text);
