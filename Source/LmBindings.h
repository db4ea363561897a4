// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmBindings_h
#define LmBindings_h

// All of the library's interface.

#include "LmBindable.h"
#include "LmControlBinding.h"
#include "LmDebugObject.h"
#include "LmDiagnosticHandler.h"
#include "LmExampleBinding.h"
#include "LmExport.h"
#include "LmJournalHook.h"
#include "LmKeyValueBinding.h"
#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "LmLifeWatch.h"
#include "LmLogicalTransforms.h"
#include "LmMenuBinding.h"
#include "LmMetaTransforms.h"
#include "LmNumericalTransforms.h"
#include "LmPreferenceBinding.h"
#include "LmStackLink.h"
#include "LmString.h"
#include "LmStringTransforms.h"
#include "LmUpdateScope.h"
#include "LmValue.h"
#include "LmValueTransform.h"
#include "LmVersion.h"
#include "LmWindowBinding.h"

#endif
