/*
 * orvamobilegx.h - the whole interface of the ORVAMobileGX library.
 * Compiles as C99 and as C++.
 */
#ifndef ORVAMOBILEGX_H
#define ORVAMOBILEGX_H

#include "gx_frame.h"
#include "gx_objects.h"
#include "gx_geodesy.h"
#include "gx_projections.h"
#include "gx_horizon.h"
#include "gx_convert.h"
#include "gx_methods.h"
#include "gx_gridref.h"

#endif /* ORVAMOBILEGX_H */
