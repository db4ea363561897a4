// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGBase_h
#define CGBase_h

// The scalar type of CoreGraphics, since Mac OS X 10.5.

#include <float.h>

// 32 bits wide on every host, also where pointers have 64: values that hold geometry keep one size and one
// stored form.
typedef float CGFloat;

#define CGFLOAT_IS_DOUBLE 0
// The smallest positive number with all its digits, and the largest.
#define CGFLOAT_MIN FLT_MIN
#define CGFLOAT_MAX FLT_MAX

#endif
