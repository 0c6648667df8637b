// SPDX-License-Identifier: MIT
// The small pictures of commands and verdicts: drawn, so that they are sharp at any size and readable on
// light and dark windows.
#pragma once

#include <QColor>
#include <QIcon>

namespace requite {

enum class Glyph { Start, More, Skip, Stop, Options, Open, Save, New, Site, Found, Redirect, Missing };

/// What a colour means; each has a shade for light and one for dark backgrounds.
enum class Tone { Text, Faint, Blue, Green, Red };

/// The shade of a tone that is readable on the application's current palette. `Text` is the text's colour,
/// `Faint` one for notes, which desktops' placeholder colours are often too pale for.
[[nodiscard]] QColor ShadeOf(Tone tone);

/// The colour that is this share of the way, 0 to 1, from one to another.
[[nodiscard]] QColor Between(const QColor& from, const QColor& to, double share);

/// Follows the palette: the icon is drawn again for each use.
[[nodiscard]] QIcon GlyphIcon(Glyph glyph, Tone tone = Tone::Text);

}  // namespace requite
