#include "session/TableHand.h"
