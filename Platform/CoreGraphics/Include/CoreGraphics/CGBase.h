// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CGBase_h
#define CGBase_h

// The scalar type of CoreGraphics.

// 32 bits wide on every host, also where pointers have 64: values that hold geometry keep one size and one
// stored form.
typedef float CGFloat;

#define CGFLOAT_IS_DOUBLE 0

#endif
