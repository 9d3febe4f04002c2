#pragma once

// In a theme of bright text on black, the toolkit's own style draws the edges of controls in black as well. Goes
// over to edges in the colour of the text there; call once, before the first window.
void KeepEdgesInSight();
