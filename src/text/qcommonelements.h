#pragma once

#include "qcommandparam.h"
#include "qfileparam.h"
#include "qfloatnparam.h"
#include "qfloatparam.h"
#include "qintnparam.h"
#include "qintparam.h"
#include "qnamecomment.h"
#include "util/qrecycleallocator.h"
#include "qsingletonparamgroup.h"
#include "qstringparam.h"
#include "qtextelementchange.h"
#include "qunknowngroup.h"
#include "qvalueparam.h"
#include "qversionparam.h"

/**
 * The elements every element document shares: naming comments, unknown and
 * singleton groups, and the typed parameters, with one process-wide pool
 * per class. Models register their own entries first (priority), then
 * initCommonElements() adds the naming comment and the catch-all header.
 */

extern QRecycleAllocator<QNameComment> cmmAlloc;
extern QRecycleAllocator<QUnknownGroup> ugrpAlloc;
extern QRecycleAllocator<QSingletonParamGroup> sgrpAlloc;
extern QRecycleAllocator<QStringParam> strAlloc;
extern QRecycleAllocator<QValueParam> valAlloc;
extern QRecycleAllocator<QIntParam> intAlloc;
extern QRecycleAllocator<QIntNParam> intnAlloc;
extern QRecycleAllocator<QFloatParam> floatAlloc;
extern QRecycleAllocator<QFloatNParam> floatnAlloc;
extern QRecycleAllocator<QCommandParam> cmdPAlloc;
extern QRecycleAllocator<QVersionParam> verAlloc;
extern QRecycleAllocator<QFileParam> fpAlloc;

/// Registers the naming comment and the unknown group, once at start-up.
void initCommonElements();
/// Deletes the free objects of the twelve pools.
void flushCommonElements();
/// Deletes every object of the twelve pools; no editor may be left.
void releaseCommonElements();

/**
 * Keeps naming comments linked to their headers and parameters in their
 * groups after a change, and tells each group what happened to its members
 * (paramsRemoved() first, then paramsUpdated()). A model calls it first in
 * its updateInternal().
 *
 * A group's members are the first valid parameter of each ID between its
 * header and the next one, in document order. A member whose line goes is
 * reported removed unless a later duplicate takes its place, which is then
 * reported updated. Members that a new group takes with it are not reported
 * to the new group, and value updates are not reported while the group runs
 * setParamValue().
 */
void updateCommonElements(QList<QTextElementChange>& changes);
