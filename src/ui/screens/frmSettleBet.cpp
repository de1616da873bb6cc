#include "ui/screens/frmSettleBet.h"
