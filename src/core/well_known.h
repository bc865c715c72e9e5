// The well-known definitions: one global per catalogued function that code compares node
// definitions with, or builds nodes of, without a lookup.
#pragma once

#include "core/function_def.h"

namespace quillon {

// Each is set when the catalogue defines its function (a field of its row) and cleared by
// ForgetWellKnown (function_catalogue.h); read-only in between. The name is fn and the function's
// name without '@', words capitalised: `@replace_expr` is fnReplaceExpr, `d` is fnD.

// Operators and not
inline FunctionDef *fnList, *fnAssign, *fnOr, *fnAnd, *fnLt, *fnLe, *fnGt, *fnGe, *fnEq, *fnNeq,
    *fnNot, *fnPlus, *fnMinus, *fnTimes, *fnDivide, *fnUnaryPlus, *fnUnaryMinus, *fnPow;
// Arithmetic and elementary functions
inline FunctionDef *fnSqrt, *fnInv, *fnLog, *fnExp, *fnSin, *fnCos, *fnTan, *fnAsin, *fnAcos,
    *fnAtan, *fnAbs, *fnFloor, *fnCeiling, *fnRound, *fnMod, *fnNan, *fnRecode;
// Special functions
inline FunctionDef *fnFact, *fnFactlog, *fnGamma, *fnGammader, *fnGammalog, *fnDigamma,
    *fnTrigamma, *fnGammainc, *fnGammaincder, *fnGammaincinv, *fnBeta, *fnBetalog, *fnBetainc,
    *fnBetaincder, *fnBetainv, *fnBinom, *fnBinomlog, *fnErf, *fnErfc, *fnLogit;
// Random numbers, generic
inline FunctionDef *fnRnd, *fnNrnd;
// Distributions: cumulative, density, quantile and random of each
inline FunctionDef *fnCbeta, *fnDbeta, *fnQbeta, *fnRbeta, *fnCbinom, *fnDbinom, *fnQbinom,
    *fnRbinom, *fnCchisq, *fnDchisq, *fnQchisq, *fnRchisq, *fnCexp, *fnDexp, *fnQexp, *fnRexp,
    *fnCextreme, *fnDextreme, *fnQextreme, *fnRextreme, *fnCfdist, *fnDfdist, *fnQfdist, *fnRfdist,
    *fnCgamma, *fnDgamma, *fnQgamma, *fnRgamma, *fnCged, *fnDged, *fnQged, *fnRged, *fnClaplace,
    *fnDlaplace, *fnQlaplace, *fnRlaplace, *fnClogistic, *fnDlogistic, *fnQlogistic, *fnRlogisitc,
    *fnClognorm, *fnDlognorm, *fnQlognorm, *fnRlognorm, *fnCnegbin, *fnDnegbin, *fnQnegbin,
    *fnRnegbin, *fnCnorm, *fnDnorm, *fnQnorm, *fnRnorm, *fnCpareto, *fnDpareto, *fnQpareto,
    *fnRpareto, *fnCpoisson, *fnDpoisson, *fnQpoisson, *fnRpoisson, *fnCtdist, *fnDtdist,
    *fnQtdist, *fnRtdist, *fnCunif, *fnDunif, *fnQunif, *fnRunif, *fnCweib, *fnDweib, *fnQweib,
    *fnRweib;
// Tail and bivariate functions
inline FunctionDef *fnChisq, *fnFdist, *fnTdist;
// Series operators
inline FunctionDef *fnD, *fnDlog, *fnMovav, *fnMovsum, *fnPch, *fnPcha, *fnPchy, *fnPc, *fnPca,
    *fnPcy;
// Date dummies
inline FunctionDef *fnTrend, *fnSeas, *fnBefore, *fnDuring, *fnAfter;
// Sample statistics
inline FunctionDef *fnElem, *fnCor, *fnCov, *fnInner, *fnObs, *fnMean, *fnMedian, *fnMin, *fnMax,
    *fnQuantile, *fnStdev, *fnSum, *fnSumsq, *fnVar;
// Calculus
inline FunctionDef *fnDeriv, *fnDerivx, *fnHasUnknownDerivs, *fnTaylor;
// Structural predicates and linear forms
inline FunctionDef *fnIsNumeric, *fnIsConstant, *fnIsLinear, *fnIsPolynomial, *fnLinExpand,
    *fnLinCollect, *fnLinCoefs, *fnSymList, *fnIRange1D, *fnIRange2D;
// List algebra
inline FunctionDef *fnSort, *fnJoin, *fnUnion, *fnIntersection, *fnComplement;
// Compilation, replacement and normal forms
inline FunctionDef *fnSubexpr, *fnSublist, *fnReplaceExpr, *fnReplaceExprEx, *fnFind, *fnEqkeep,
    *fnNormalize, *fnImplicit;

}  // namespace quillon
