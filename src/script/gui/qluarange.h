#pragma once

#include "qluaqtaccess.h"

/// The bounds of a range widget Q (spin boxes, sliders, progress) under
/// Qt's names and the short ones scripts use (min, setMin, max, setMax), and the value.
#define LQ_RANGE(Q)                                                                                 \
    LQ_PROPERTY("minimum", Q, minimum, setMinimum)                                                  \
    LQ_PROPERTY("min", Q, minimum, setMinimum)                                                      \
    LQ_PROPERTY("setMin", Q, minimum, setMinimum)                                                   \
    LQ_PROPERTY("maximum", Q, maximum, setMaximum)                                                  \
    LQ_PROPERTY("max", Q, maximum, setMaximum)                                                      \
    LQ_PROPERTY("setMax", Q, maximum, setMaximum)                                                   \
    LQ_PROPERTY("value", Q, value, setValue)                                                        \
    LQ_METHOD("setValue", Q, setValue)                                                              \
    LQ_METHOD("setRange", Q, setRange)
