#include "ui/frmCrapTable.h"
