#include "ui/screens/NumberField.h"
