// Small types of views: how contents fill them, and how they follow a superview that is resized.

#pragma once

namespace zephyl {

enum class UIViewContentMode {
  kScaleToFill = 0,
  kScaleAspectFit = 1,
  kScaleAspectFill = 2,
  kRedraw = 3,
  kCenter = 4
};

// Bits: which distances and sizes take their part of a change of the superview's size.
enum UIViewAutoresizing : unsigned {
  kFlexibleLeftMargin = 1,
  kFlexibleWidth = 2,
  kFlexibleRightMargin = 4,
  kFlexibleTopMargin = 8,
  kFlexibleHeight = 16,
  kFlexibleBottomMargin = 32
};

// Bits of UIView::animateWithDuration, with the platform's values.
enum UIViewAnimationOptions : unsigned {
  kAnimationNoOptions = 0,
  // Changes nothing here: what moves can be touched in any case.
  kAnimationAllowUserInteraction = 1U << 1U,
  // From what is on the screen, where another animation still runs; else from the layer's value.
  kAnimationBeginFromCurrentState = 1U << 2U,
  kAnimationCurveEaseInOut = 0U << 16U,
  kAnimationCurveEaseIn = 1U << 16U,
  kAnimationCurveEaseOut = 2U << 16U,
  kAnimationCurveLinear = 3U << 16U
};

}  // namespace zephyl
