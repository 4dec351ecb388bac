#pragma once

/*
 * The rules of the hq filters, written for the top-left corner of the
 * enlarged pixel; the filter turns the neighbourhood to reach the other three
 * corners, so one set of rules serves all four.
 *
 * Neighbours are numbered as they lie around the centre 5:
 *     1 2 3
 *     4 5 6
 *     7 8 9
 * A rule's `neighbours` has one character for each of 1 2 3 4 6 7 8 9 and
 * `edges` one for each of the pairs 2-6, 6-8, 8-4, 4-2: '1' when the two
 * differ visibly, '0' when they do not, '.' when it does not matter.
 * Exactly one rule of a cell matches any neighbourhood.
 */

/// A weighted mean of up to three of the nine pixels; weights sum to 1 << shift.
struct HqBlend
{
    unsigned char pixel[3];
    unsigned char weight[3];
    unsigned char shift;
};

struct HqRule
{
    const char* neighbours;
    const char* edges;
    HqBlend blend;
};

/// The rules of one output pixel of the top-left corner.
struct HqCell
{
    int row;
    int column;
    const HqRule* rules;
    int count;
};

/// The cells of the top-left corner for `scale` 2, 3 or 4; `count` receives their number.
const HqCell* hqCells(int scale, int& count);
