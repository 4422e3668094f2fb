#pragma once

namespace corvane {

/// The pictures on the toolbar's buttons, numbered from 1. The first seven stand
/// for the seven buttons in their order.
enum ButtonImage : int {
  kImageBack = 1,
  kImageForward,
  kImageStop,
  kImageRefresh,
  kImageHome,
  kImageSearch,
  kImagePrint,
  kImageLoading,
};

}  // namespace corvane
