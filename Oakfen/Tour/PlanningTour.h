#pragma once

#include "OakfenCore/Models/Library.h"

namespace oakfen {

class Album;
class TourStage;

/// The screens that plan ahead, where a look at each of them isn't enough: their ends, other widths
/// of the window, what opens over them, and what is half typed.
void walkThePlans(const Album& album, TourStage& stage);

/// The same screens on documents that have next to nothing, or a lot.
void walkTheStatesOfPlans(const Album& album, const Library& document);

} // namespace oakfen
