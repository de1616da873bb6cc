#include "ui/picture/TablePicture.h"
