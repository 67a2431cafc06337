#pragma once

#include "Fuzz/ByteReader.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen::fuzz {

/// Changes the document by one operation that a screen could ask for; the bytes choose which one,
/// and on what. Few ids, texts and amounts are in play, so that edits meet.
void applyEdit(Library& library, ByteReader& bytes);

} // namespace oakfen::fuzz
