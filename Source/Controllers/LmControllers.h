// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmControllers_h
#define LmControllers_h

// All of the interface of the library Lm::Controllers: what stands around stores and bindings, and looks
// after itself. LmBindings.h does not include it, for an application can do without.

#include "LmChangeGroup.h"
#include "LmChoiceBinding.h"
#include "LmDateFormatter.h"
#include "LmFormatter.h"
#include "LmFormatterTransforms.h"
#include "LmMainQueue.h"
#include "LmNumberFormatters.h"
#include "LmObservation.h"
#include "LmRangeTransform.h"
#include "LmScopedBinding.h"
#include "LmSettledControlBinding.h"
#include "LmSharedTransform.h"
#include "LmTextFieldBinding.h"
#include "LmWordFormatters.h"

#endif
