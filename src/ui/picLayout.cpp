#include "ui/picLayout.h"
