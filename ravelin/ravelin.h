#pragma once

// Everything the library offers, in one include.

#include "ravelin/RvExport.h"
#include "ravelin/numeric/CMatrix.h"
#include "ravelin/numeric/Number.h"
#include "ravelin/numeric/RvPlane.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/numeric/RvPoint3D.h"
#include "ravelin/numeric/RvPointMatrix.h"
#include "ravelin/platform/AfxMessageBox.h"
#include "ravelin/platform/CArchive.h"
#include "ravelin/platform/CException.h"
#include "ravelin/platform/CFile.h"
#include "ravelin/platform/CObject.h"
#include "ravelin/platform/CPoint.h"
#include "ravelin/platform/CRect.h"
#include "ravelin/platform/CheckedVector.h"
