// The colours of what stands around the box: light or dark, as the desktop is or as the user wants it.
#pragma once

namespace tq {

enum class Surroundings { AsTheDesktop, Light, Dark };
/// In their order.
const char* text_of(Surroundings surroundings);

/// What is kept; until something else is, that of the desktop.
Surroundings kept_surroundings();
/// Takes these from now on, and keeps them for the next time.
void choose_surroundings(Surroundings surroundings);

/// Shows what is kept. Where that is the desktop's, it is asked now and whenever the program becomes the
/// active one again; a desktop that does not answer is light.
void follow_surroundings();

}  // namespace tq
