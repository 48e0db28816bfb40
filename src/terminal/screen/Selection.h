// Selecting with the mouse. A selection runs from a start cell through to an end cell
// across whole rows, as one long run of cells; its highlight is drawn by XOR straight
// onto the canvas and leaves the model untouched. Interface thread.
#pragma once

// The pointer moved over the canvas with the left button down.
void ExtendSelection();

// The left button was released over the canvas: copies what was selected, unless the
// setting says not to, and clears the highlight.
void FinishSelection();
