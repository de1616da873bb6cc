#include "ui/screens/Screen.h"
