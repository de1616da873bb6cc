#include "ui/screens/frmMsg.h"
