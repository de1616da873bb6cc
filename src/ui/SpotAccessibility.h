// The table picture for screen readers: one child for each spot on view and each button of the tool strip.
#pragma once

namespace rollwick {

class picLayout;

// Makes the picture's spots known; called once before the window appears.
void InstallSpotAccessibility();

// The keyboard's cursor moved, or what is said of its spot changed.
void TellFocus(picLayout& layout);
void TellCursorText(picLayout& layout);

}  // namespace rollwick
