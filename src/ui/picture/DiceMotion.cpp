#include "ui/picture/DiceMotion.h"
