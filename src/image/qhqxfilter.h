#pragma once

/*
 * The hq2x, hq3x and hq4x magnification filters. Each reads `width` by
 * `height` 32-bit pixels (0xAARRGGBB, rows packed without padding) and writes
 * the picture enlarged by 2, 3 or 4 to `target`, whose rows are `targetPitch`
 * bytes apart. Every output pixel is a fixed blend of its source pixel and
 * the eight around it, chosen by which neighbours differ visibly from it
 * (in YUV: Y by more than 48, U by more than 7, V by more than 6) and by
 * which of the four edge neighbours differ from each other. Pixels beyond the
 * border repeat the border.
 */
void HQ2X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch);
void HQ3X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch);
void HQ4X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch);
