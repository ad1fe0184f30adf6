// hosts/mrvsamples/mrvSampleCharacters.h
// The characters that are made here.
#pragma once

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvsamples {

// Each fills a new character.

/// A biped with fingers and a full catalogue of assets.
void buildCourier(mrv::MaravoCharacterV24& character);

/// A quadruped with a tail.
void buildHound(mrv::MaravoCharacterV24& character);

} // namespace mrvsamples
