#include "ui/screens/Captions.h"
