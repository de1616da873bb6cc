#include "ui/sound/SoundPlayer.h"
