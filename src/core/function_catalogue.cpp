// The rows of the catalogue, family by family in the order of building, and the aliases. The
// loops that define them are in define_catalogue.cpp.
#include "core/function_catalogue.h"

#include "core/op_code.h"
#include "core/well_known.h"

namespace quillon {
namespace {

// @plus and @times: sorted, flattened, a single argument is itself, and the order of nodes reads
// them from the last child and sees through them.
constexpr uint32_t kSumOrProduct = AttrCommutative | AttrAssociative | AttrCollapseSingle |
                                   AttrOrderFromLast | AttrOrderThrough;

// The one machine form in the catalogue: two doubles to a double.
constexpr const char* kTwoDoubles = "2dd_d";

// ---- Operators and not. Only these definitions have a syntax; the printer spells them by
// token. `^` is left-associative on purpose (2^3^2 is (2^3)^2), and `=` is the one comparison
// that groups to the right.
const CatalogueRow kOperatorsRows[] = {
    {.name = "@list",       .opClass = OpBracket, .token = TokOpenBrace,
                            .closeToken = TokCloseBrace, .wellKnown = &fnList},
    {.name = "@assign",     .opClass = OpBinary, .token = TokAssign, .priority = 30, .rightAssoc = 1,
                            .signature = {27, kTwoDoubles}, .wellKnown = &fnAssign},
    {.name = "@or",         .attributes = AttrAssociative | AttrCollapseSingle, .opClass = OpBinary,
                            .token = TokOr, .priority = 40, .wellKnown = &fnOr},
    {.name = "@and",        .attributes = AttrAssociative | AttrCollapseSingle, .opClass = OpBinary,
                            .token = TokAnd, .priority = 50, .wellKnown = &fnAnd},
    {.name = "@lt",         .opClass = OpBinary, .token = TokLess, .priority = 100,
                            .wellKnown = &fnLt},
    {.name = "@le",         .opClass = OpBinary, .token = TokLessEqual, .priority = 100,
                            .wellKnown = &fnLe},
    {.name = "@gt",         .opClass = OpBinary, .token = TokGreater, .priority = 100,
                            .wellKnown = &fnGt},
    {.name = "@ge",         .opClass = OpBinary, .token = TokGreaterEqual, .priority = 100,
                            .wellKnown = &fnGe},
    {.name = "@eq",         .opClass = OpBinary, .token = TokEqual, .priority = 100,
                            .rightAssoc = 1, .wellKnown = &fnEq},
    {.name = "@neq",        .opClass = OpBinary, .token = TokLessGreater, .priority = 100,
                            .wellKnown = &fnNeq},
    {.name = "not",         .wellKnown = &fnNot},
    {.name = "@plus",       .attributes = kSumOrProduct, .opClass = OpBinary, .token = TokPlus,
                            .priority = 200, .signature = {28, kTwoDoubles}, .wellKnown = &fnPlus},
    {.name = "@minus",      .opClass = OpBinary, .token = TokMinus, .priority = 200,
                            .signature = {29, kTwoDoubles}, .wellKnown = &fnMinus},
    {.name = "@times",      .attributes = kSumOrProduct, .opClass = OpBinary, .token = TokStar,
                            .priority = 500, .signature = {30, kTwoDoubles}, .wellKnown = &fnTimes},
    {.name = "@divide",     .opClass = OpBinary, .token = TokSlash, .priority = 500,
                            .signature = {31, kTwoDoubles}, .wellKnown = &fnDivide},
    {.name = "@UnaryPlus",  .opClass = OpPrefix, .token = TokPlus, .priority = 600,
                            .rightAssoc = 1, .wellKnown = &fnUnaryPlus},
    {.name = "@UnaryMinus", .attributes = AttrOrderThrough, .opClass = OpPrefix, .token = TokMinus,
                            .priority = 600, .rightAssoc = 1, .wellKnown = &fnUnaryMinus},
    {.name = "@pow",        .attributes = AttrCollapseSingle | AttrOrderThrough,
                            .opClass = OpBinary, .token = TokCaret, .priority = 700,
                            .wellKnown = &fnPow},
};

// ---- Arithmetic and elementary functions
const CatalogueRow kElementaryRows[] = {
    {.name = "@sqrt",     .wellKnown = &fnSqrt},
    {.name = "@inv",      .wellKnown = &fnInv},
    {.name = "log",       .wellKnown = &fnLog},
    {.name = "exp",       .wellKnown = &fnExp},
    {.name = "@log10"},
    {.name = "@logx"},
    {.name = "@expm1"},
    {.name = "@log1p"},
    {.name = "@log1mexp"},
    {.name = "@powm1"},
    {.name = "@pow1pm1"},
    {.name = "@sin",      .wellKnown = &fnSin},
    {.name = "@cos",      .wellKnown = &fnCos},
    {.name = "@tan",      .wellKnown = &fnTan},
    {.name = "@asin",     .wellKnown = &fnAsin},
    {.name = "@acos",     .wellKnown = &fnAcos},
    {.name = "@atan",     .wellKnown = &fnAtan},
    {.name = "@abs",      .wellKnown = &fnAbs},
    {.name = "@floor",    .wellKnown = &fnFloor},
    {.name = "@ceiling",  .wellKnown = &fnCeiling},
    {.name = "@round",    .wellKnown = &fnRound},
    {.name = "@mod",      .wellKnown = &fnMod},
    {.name = "@nan",      .wellKnown = &fnNan},
    {.name = "@recode",   .wellKnown = &fnRecode},
    {.name = "@isna"},
    {.name = "@pmin"},
    {.name = "@pmax"},
};

// ---- Special functions
const CatalogueRow kSpecialRows[] = {
    {.name = "@fact",        .wellKnown = &fnFact},
    {.name = "@factlog",     .wellKnown = &fnFactlog},
    {.name = "@gamma",       .wellKnown = &fnGamma},
    {.name = "@gammader",    .wellKnown = &fnGammader},
    {.name = "@gammalog",    .wellKnown = &fnGammalog},
    {.name = "@digamma",     .wellKnown = &fnDigamma},
    {.name = "@trigamma",    .wellKnown = &fnTrigamma},
    {.name = "@gammainc",    .wellKnown = &fnGammainc},
    {.name = "@gammaincder", .wellKnown = &fnGammaincder},
    {.name = "@gammaincinv", .wellKnown = &fnGammaincinv},
    {.name = "@beta",        .wellKnown = &fnBeta},
    {.name = "@betalog",     .wellKnown = &fnBetalog},
    {.name = "@betainc",     .wellKnown = &fnBetainc},
    {.name = "@betaincder",  .wellKnown = &fnBetaincder},
    {.name = "@betainv",     .wellKnown = &fnBetainv},
    {.name = "@binom",       .wellKnown = &fnBinom},
    {.name = "@binomlog",    .wellKnown = &fnBinomlog},
    {.name = "@erf",         .wellKnown = &fnErf},
    {.name = "@erfc",        .wellKnown = &fnErfc},
    {.name = "@logit",       .wellKnown = &fnLogit},
};

// ---- Random numbers, generic
const CatalogueRow kGenericRandomRows[] = {
    {.name = "rnd",  .attributes = AttrRandom, .wellKnown = &fnRnd},
    {.name = "nrnd", .attributes = AttrRandom, .wellKnown = &fnNrnd},
};

// ---- Distributions: cumulative, density, quantile and random of each
const CatalogueRow kDistributionsRows[] = {
    {.name = "@cbeta",     .wellKnown = &fnCbeta},
    {.name = "@dbeta",     .wellKnown = &fnDbeta},
    {.name = "@qbeta",     .wellKnown = &fnQbeta},
    {.name = "@rbeta",     .attributes = AttrRandom, .wellKnown = &fnRbeta},
    {.name = "@cbinom",    .wellKnown = &fnCbinom},
    {.name = "@dbinom",    .wellKnown = &fnDbinom},
    {.name = "@qbinom",    .wellKnown = &fnQbinom},
    {.name = "@rbinom",    .attributes = AttrRandom, .wellKnown = &fnRbinom},
    {.name = "@cchisq",    .wellKnown = &fnCchisq},
    {.name = "@dchisq",    .wellKnown = &fnDchisq},
    {.name = "@qchisq",    .wellKnown = &fnQchisq},
    {.name = "@rchisq",    .attributes = AttrRandom, .wellKnown = &fnRchisq},
    {.name = "@cexp",      .wellKnown = &fnCexp},
    {.name = "@dexp",      .wellKnown = &fnDexp},
    {.name = "@qexp",      .wellKnown = &fnQexp},
    {.name = "@rexp",      .attributes = AttrRandom, .wellKnown = &fnRexp},
    {.name = "@cextreme",  .wellKnown = &fnCextreme},
    {.name = "@dextreme",  .wellKnown = &fnDextreme},
    {.name = "@qextreme",  .wellKnown = &fnQextreme},
    {.name = "@rextreme",  .attributes = AttrRandom, .wellKnown = &fnRextreme},
    {.name = "@cfdist",    .wellKnown = &fnCfdist},
    {.name = "@dfdist",    .wellKnown = &fnDfdist},
    {.name = "@qfdist",    .wellKnown = &fnQfdist},
    {.name = "@rfdist",    .attributes = AttrRandom, .wellKnown = &fnRfdist},
    {.name = "@cgamma",    .wellKnown = &fnCgamma},
    {.name = "@dgamma",    .wellKnown = &fnDgamma},
    {.name = "@qgamma",    .wellKnown = &fnQgamma},
    {.name = "@rgamma",    .attributes = AttrRandom, .wellKnown = &fnRgamma},
    {.name = "@cged",      .wellKnown = &fnCged},
    {.name = "@dged",      .wellKnown = &fnDged},
    {.name = "@qged",      .wellKnown = &fnQged},
    {.name = "@rged",      .attributes = AttrRandom, .wellKnown = &fnRged},
    {.name = "@claplace",  .wellKnown = &fnClaplace},
    {.name = "@dlaplace",  .wellKnown = &fnDlaplace},
    {.name = "@qlaplace",  .wellKnown = &fnQlaplace},
    {.name = "@rlaplace",  .attributes = AttrRandom, .wellKnown = &fnRlaplace},
    {.name = "@clogistic", .wellKnown = &fnClogistic},
    {.name = "@dlogistic", .wellKnown = &fnDlogistic},
    {.name = "@qlogistic", .wellKnown = &fnQlogistic},
    {.name = "@rlogisitc", .attributes = AttrRandom, .wellKnown = &fnRlogisitc},
    {.name = "@clognorm",  .wellKnown = &fnClognorm},
    {.name = "@dlognorm",  .wellKnown = &fnDlognorm},
    {.name = "@qlognorm",  .wellKnown = &fnQlognorm},
    {.name = "@rlognorm",  .attributes = AttrRandom, .wellKnown = &fnRlognorm},
    {.name = "@cnegbin",   .wellKnown = &fnCnegbin},
    {.name = "@dnegbin",   .wellKnown = &fnDnegbin},
    {.name = "@qnegbin",   .wellKnown = &fnQnegbin},
    {.name = "@rnegbin",   .attributes = AttrRandom, .wellKnown = &fnRnegbin},
    {.name = "@cnorm",     .wellKnown = &fnCnorm},
    {.name = "@dnorm",     .wellKnown = &fnDnorm},
    {.name = "@qnorm",     .wellKnown = &fnQnorm},
    {.name = "@rnorm",     .attributes = AttrRandom, .wellKnown = &fnRnorm},
    {.name = "@cpareto",   .wellKnown = &fnCpareto},
    {.name = "@dpareto",   .wellKnown = &fnDpareto},
    {.name = "@qpareto",   .wellKnown = &fnQpareto},
    {.name = "@rpareto",   .attributes = AttrRandom, .wellKnown = &fnRpareto},
    {.name = "@cpoisson",  .wellKnown = &fnCpoisson},
    {.name = "@dpoisson",  .wellKnown = &fnDpoisson},
    {.name = "@qpoisson",  .wellKnown = &fnQpoisson},
    {.name = "@rpoisson",  .attributes = AttrRandom, .wellKnown = &fnRpoisson},
    {.name = "@ctdist",    .wellKnown = &fnCtdist},
    {.name = "@dtdist",    .wellKnown = &fnDtdist},
    {.name = "@qtdist",    .wellKnown = &fnQtdist},
    {.name = "@rtdist",    .attributes = AttrRandom, .wellKnown = &fnRtdist},
    {.name = "@cunif",     .wellKnown = &fnCunif},
    {.name = "@dunif",     .wellKnown = &fnDunif},
    {.name = "@qunif",     .wellKnown = &fnQunif},
    {.name = "@runif",     .attributes = AttrRandom, .wellKnown = &fnRunif},
    {.name = "@cweib",     .wellKnown = &fnCweib},
    {.name = "@dweib",     .wellKnown = &fnDweib},
    {.name = "@qweib",     .wellKnown = &fnQweib},
    {.name = "@rweib",     .attributes = AttrRandom, .wellKnown = &fnRweib},
};

// ---- Tail and bivariate functions
const CatalogueRow kTailBivariateRows[] = {
    {.name = "@chisq",   .wellKnown = &fnChisq},
    {.name = "@fdist",   .wellKnown = &fnFdist},
    {.name = "@tdist",   .wellKnown = &fnTdist},
    {.name = "@cbvnorm"},
    {.name = "@dbvnorm"},
};

// ---- Series operators
const CatalogueRow kSeriesOperatorsRows[] = {
    {.name = "@lag",    .attributes = AttrSeries},
    {.name = "d",       .attributes = AttrSeries, .wellKnown = &fnD},
    {.name = "dlog",    .attributes = AttrSeries, .wellKnown = &fnDlog},
    {.name = "@movav",  .attributes = AttrSeries, .wellKnown = &fnMovav},
    {.name = "@movsum", .attributes = AttrSeries, .wellKnown = &fnMovsum},
    {.name = "@pch",    .attributes = AttrSeries, .wellKnown = &fnPch},
    {.name = "@pcha",   .attributes = AttrSeries, .wellKnown = &fnPcha},
    {.name = "@pchy",   .attributes = AttrSeries, .wellKnown = &fnPchy},
    {.name = "@pc",     .attributes = AttrSeries, .wellKnown = &fnPc},
    {.name = "@pca",    .attributes = AttrSeries, .wellKnown = &fnPca},
    {.name = "@pcy",    .attributes = AttrSeries, .wellKnown = &fnPcy},
};

// ---- Moving statistics, long names
const CatalogueRow kMovingLongRows[] = {
    {.name = "@movavc"},
    {.name = "@movstdev"},
    {.name = "@movstdevs"},
    {.name = "@movstdevp"},
    {.name = "@movvar"},
    {.name = "@movvars"},
    {.name = "@movvarp"},
    {.name = "@movcov"},
    {.name = "@movcovs"},
    {.name = "@movcovp"},
    {.name = "@movcor"},
    {.name = "@movmax"},
    {.name = "@movmin"},
    {.name = "@movsumsq"},
    {.name = "@movskew"},
    {.name = "@movkurt"},
    {.name = "@movobs"},
    {.name = "@movnas"},
    {.name = "@movinner"},
};

// ---- Moving statistics, short names
const CatalogueRow kMovingShortRows[] = {
    {.name = "@msum"},
    {.name = "@mav"},
    {.name = "@mavc"},
    {.name = "@mstdev"},
    {.name = "@mstdevs"},
    {.name = "@mstdevp"},
    {.name = "@mvar"},
    {.name = "@mvars"},
    {.name = "@mvarp"},
    {.name = "@mcov"},
    {.name = "@mcovs"},
    {.name = "@mcovp"},
    {.name = "@mcor"},
    {.name = "@mmax"},
    {.name = "@mmin"},
    {.name = "@msumsq"},
    {.name = "@mskew"},
    {.name = "@mkurt"},
    {.name = "@mobs"},
    {.name = "@mnas"},
    {.name = "@minner"},
};

// ---- Date dummies
const CatalogueRow kDateDummiesRows[] = {
    {.name = "@trend",  .attributes = AttrDate, .wellKnown = &fnTrend},
    {.name = "@seas",   .attributes = AttrDate, .wellKnown = &fnSeas},
    {.name = "@before", .attributes = AttrDate, .wellKnown = &fnBefore},
    {.name = "@during", .attributes = AttrDate, .wellKnown = &fnDuring},
    {.name = "@after",  .attributes = AttrDate, .wellKnown = &fnAfter},
};

// ---- Sample statistics
const CatalogueRow kSampleStatisticsRows[] = {
    {.name = "@elem",     .attributes = AttrAggregate, .wellKnown = &fnElem},
    {.name = "@cor",      .attributes = AttrAggregate, .wellKnown = &fnCor},
    {.name = "@cov",      .attributes = AttrAggregate, .wellKnown = &fnCov},
    {.name = "@inner",    .attributes = AttrAggregate, .wellKnown = &fnInner},
    {.name = "@obs",      .attributes = AttrAggregate, .wellKnown = &fnObs},
    {.name = "@mean",     .attributes = AttrAggregate, .wellKnown = &fnMean},
    {.name = "@median",   .attributes = AttrAggregate, .wellKnown = &fnMedian},
    {.name = "@min",      .attributes = AttrAggregate, .wellKnown = &fnMin},
    {.name = "@max",      .attributes = AttrAggregate, .wellKnown = &fnMax},
    {.name = "@quantile", .attributes = AttrAggregate, .wellKnown = &fnQuantile},
    {.name = "@stdev",    .attributes = AttrAggregate, .wellKnown = &fnStdev},
    {.name = "@sum",      .attributes = AttrAggregate, .wellKnown = &fnSum},
    {.name = "@sumsq",    .attributes = AttrAggregate, .wellKnown = &fnSumsq},
    {.name = "@var",      .attributes = AttrAggregate, .wellKnown = &fnVar},
    {.name = "@skew",     .attributes = AttrAggregate},
    {.name = "@kurt",     .attributes = AttrAggregate},
    {.name = "@nas",      .attributes = AttrAggregate},
};

// ---- Statistics by group
const CatalogueRow kGroupStatisticsRows[] = {
    {.name = "@obsby",       .attributes = AttrAggregate},
    {.name = "@meansby",     .attributes = AttrAggregate},
    {.name = "@mediansby",   .attributes = AttrAggregate},
    {.name = "@minsby",      .attributes = AttrAggregate},
    {.name = "@maxsby",      .attributes = AttrAggregate},
    {.name = "@quantilesby", .attributes = AttrAggregate},
    {.name = "@stdevsby",    .attributes = AttrAggregate},
    {.name = "@sumsby",      .attributes = AttrAggregate},
    {.name = "@sumsqby",     .attributes = AttrAggregate},
    {.name = "@varsby",      .attributes = AttrAggregate},
    {.name = "@skewsby",     .attributes = AttrAggregate},
    {.name = "@kurtsby",     .attributes = AttrAggregate},
    {.name = "@nasby",       .attributes = AttrAggregate},
};

// ---- Text
const CatalogueRow kTextRows[] = {
    {.name = "@len"},
    {.name = "@val"},
    {.name = "@str"},
    {.name = "@ltrim"},
    {.name = "@rtrim"},
    {.name = "@trim"},
    {.name = "@upper"},
    {.name = "@lower"},
    {.name = "@left"},
    {.name = "@right"},
    {.name = "@mid"},
    {.name = "@replace"},
    {.name = "@instr"},
    {.name = "@insert"},
};

// ---- Dates
const CatalogueRow kDatesRows[] = {
    {.name = "@dateadd"},
    {.name = "@datediff"},
    {.name = "@datefloor"},
    {.name = "@datepart"},
    {.name = "@dateval"},
    {.name = "@datestr"},
    {.name = "@strnow"},
};

// ---- Value maps and periods
const CatalogueRow kValueMapsRows[] = {
    {.name = "@map"},
    {.name = "@unmap"},
    {.name = "@unmaptxt"},
    {.name = "@isperiod"},
};

// ---- Matrix-valued distributions and matrix functions
const CatalogueRow kMatrixFunctionsRows[] = {
    {.name = "@mvgamma"},
    {.name = "@mvgammalog"},
    {.name = "@rmvnorm",    .attributes = AttrRandom},
    {.name = "@rmvnormc",   .attributes = AttrRandom},
    {.name = "@rmvnormi",   .attributes = AttrRandom},
    {.name = "@rmvnormic",  .attributes = AttrRandom},
    {.name = "@dmvnorm"},
    {.name = "@dmvnormc"},
    {.name = "@dmvnormi"},
    {.name = "@dmvnormic"},
    {.name = "@rwish",      .attributes = AttrRandom},
    {.name = "@rwishc",     .attributes = AttrRandom},
    {.name = "@rwishi",     .attributes = AttrRandom},
    {.name = "@rwishic",    .attributes = AttrRandom},
    {.name = "@dwish"},
    {.name = "@dwishc"},
    {.name = "@dwishi"},
    {.name = "@dwishic"},
    {.name = "@riwish",     .attributes = AttrRandom},
    {.name = "@riwishc",    .attributes = AttrRandom},
    {.name = "@riwishi",    .attributes = AttrRandom},
    {.name = "@riwishic",   .attributes = AttrRandom},
    {.name = "@diwish"},
    {.name = "@diwishc"},
    {.name = "@diwishi"},
    {.name = "@diwishic"},
    {.name = "@qr"},
};

// ---- Matrix and series transforms
const CatalogueRow kTransformsRows[] = {
    {.name = "@sweep"},
    {.name = "@rsweep"},
    {.name = "@cumsum"},
    {.name = "@colcumsum"},
    {.name = "@cumprod"},
    {.name = "@colcumprod"},
    {.name = "@seq"},
    {.name = "@seqm"},
    {.name = "@fracdiff"},
    {.name = "@ytd"},
    {.name = "@periodtodate"},
    {.name = "@bridge"},
    {.name = "@pctiles"},
    {.name = "@colpctiles"},
    {.name = "@stdize"},
    {.name = "@colstdize"},
    {.name = "@stdizep"},
    {.name = "@colstdizep"},
    {.name = "@demean"},
    {.name = "@coldemean"},
    {.name = "@demeanby"},
    {.name = "@detrend"},
    {.name = "@coldetrend"},
    {.name = "@trendcoef"},
    {.name = "@ctrendcoef"},
    {.name = "@intercept"},
    {.name = "@cintercept"},
    {.name = "@trmean"},
    {.name = "@ctrmean"},
    {.name = "@dupsid"},
    {.name = "@dupsobs"},
    {.name = "@columns"},
};

// ---- Row-wise statistics
const CatalogueRow kRowStatisticsRows[] = {
    {.name = "@rmas"},
    {.name = "@robs"},
    {.name = "@rvalcount"},
    {.name = "@rsum"},
    {.name = "@rmean"},
    {.name = "@rmedian"},
    {.name = "@rprod"},
    {.name = "@rquantile"},
    {.name = "@rstdev"},
    {.name = "@rstdevp"},
    {.name = "@rstdevs"},
    {.name = "@rvar"},
    {.name = "@rvarp"},
    {.name = "@rvars"},
    {.name = "@rsumsq"},
    {.name = "@rfirst"},
    {.name = "@rifirst"},
    {.name = "@rlast"},
    {.name = "@rilast"},
    {.name = "@rimax"},
    {.name = "@rimin"},
    {.name = "@rmax"},
    {.name = "@rmin"},
};

// ---- Finance
const CatalogueRow kFinanceRows[] = {
    {.name = "@pmt"},
};

// ---- Calculus
const CatalogueRow kCalculusRows[] = {
    {.name = "@deriv",            .attributes = AttrCollapseSingle, .childMode = ModeTimeExpand,
                                  .wellKnown = &fnDeriv},
    {.name = "@derivx",           .wellKnown = &fnDerivx},
    {.name = "@HasUnknownDerivs", .wellKnown = &fnHasUnknownDerivs},
    {.name = "@taylor",           .wellKnown = &fnTaylor},
};

// ---- Structural predicates and linear forms
const CatalogueRow kStructuralRows[] = {
    {.name = "@IsNumeric",    .wellKnown = &fnIsNumeric},
    {.name = "@IsConstant",   .wellKnown = &fnIsConstant},
    {.name = "@IsLinear",     .wellKnown = &fnIsLinear},
    {.name = "@IsPolynomial", .wellKnown = &fnIsPolynomial},
    {.name = "@LinExpand",    .wellKnown = &fnLinExpand},
    {.name = "@LinCollect",   .wellKnown = &fnLinCollect},
    {.name = "@LinCoefs",     .wellKnown = &fnLinCoefs},
    {.name = "@SymList",      .wellKnown = &fnSymList},
    {.name = "@IRange1D",     .wellKnown = &fnIRange1D},
    {.name = "@IRange2D",     .wellKnown = &fnIRange2D},
};

// ---- List algebra
const CatalogueRow kListAlgebraRows[] = {
    {.name = "@sort",         .wellKnown = &fnSort},
    {.name = "@join",         .wellKnown = &fnJoin},
    {.name = "@union",        .wellKnown = &fnUnion},
    {.name = "@intersection", .wellKnown = &fnIntersection},
    {.name = "@complement",   .wellKnown = &fnComplement},
};

// ---- Mode wrappers and time expansion
const CatalogueRow kModeWrappersRows[] = {
    {.name = "@N",         .attributes = AttrCollapseSingle, .childMode = ModeNumeric},
    {.name = "@expand",    .attributes = AttrCollapseSingle, .childMode = ModeExpand},
    {.name = "@factor",    .attributes = AttrCollapseSingle, .childMode = ModeFactor},
    {.name = "@expandtime"},
    {.name = "@flatten"},
};

// ---- Compilation, replacement and normal forms
const CatalogueRow kCompilationRows[] = {
    {.name = "@subexpr",         .wellKnown = &fnSubexpr},
    {.name = "@sublist",         .wellKnown = &fnSublist},
    {.name = "@replace_expr",    .wellKnown = &fnReplaceExpr},
    {.name = "@replace_expr_ex", .wellKnown = &fnReplaceExprEx},
    {.name = "@find",            .wellKnown = &fnFind},
    {.name = "@eqkeep",          .wellKnown = &fnEqkeep},
    {.name = "@normalize",       .wellKnown = &fnNormalize},
    {.name = "@implicit",        .wellKnown = &fnImplicit},
};

// ---- Cumulative dummies
const CatalogueRow kCumulativeDummiesRows[] = {
    {.name = "@cumdn"},
    {.name = "@cumdp"},
    {.name = "@dcumdn"},
    {.name = "@dcumdp"},
};
// ---- Aliases. For log, exp, not, d and dlog the bare word is the definition; for sin, cos,
// abs and sqr the '@' form is. The parser follows an alias once, so only targets reach nodes.
const CatalogueAlias kAliases[] = {
    {.name = "@not",     .target = "not"},
    {.name = "@sqr",     .target = "@sqrt"},
    {.name = "sqr",      .target = "@sqrt"},
    {.name = "@log",     .target = "log"},
    {.name = "@exp",     .target = "exp"},
    {.name = "sin",      .target = "@sin"},
    {.name = "cos",      .target = "@cos"},
    {.name = "abs",      .target = "@abs"},
    {.name = "@ceil",    .target = "@ceiling"},
    {.name = "@iif",     .target = "@recode"},
    {.name = "@psi",     .target = "@digamma"},
    {.name = "@cloglog", .target = "@qextreme"},
    {.name = "@d",       .target = "d"},
    {.name = "@dlog",    .target = "dlog"},
};

// ORDER FAMILY
const CatalogueFamilySpan kFamilies[] = {
    {CatalogueFamily::Operators, "Operators", kOperatorsRows},
    {CatalogueFamily::Elementary, "Arithmetic and elementary functions", kElementaryRows},
    {CatalogueFamily::Special, "Special functions", kSpecialRows},
    {CatalogueFamily::GenericRandom, "Random numbers, generic", kGenericRandomRows},
    {CatalogueFamily::Distributions, "Distributions", kDistributionsRows},
    {CatalogueFamily::TailBivariate, "Tail and bivariate functions", kTailBivariateRows},
    {CatalogueFamily::SeriesOperators, "Series operators", kSeriesOperatorsRows},
    {CatalogueFamily::MovingLong, "Moving statistics, long names", kMovingLongRows},
    {CatalogueFamily::MovingShort, "Moving statistics, short names", kMovingShortRows},
    {CatalogueFamily::DateDummies, "Date dummies", kDateDummiesRows},
    {CatalogueFamily::SampleStatistics, "Sample statistics", kSampleStatisticsRows},
    {CatalogueFamily::GroupStatistics, "Statistics by group", kGroupStatisticsRows},
    {CatalogueFamily::Text, "Text", kTextRows},
    {CatalogueFamily::Dates, "Dates", kDatesRows},
    {CatalogueFamily::ValueMaps, "Value maps and periods", kValueMapsRows},
    {CatalogueFamily::MatrixFunctions, "Matrix-valued distributions and matrix functions",
     kMatrixFunctionsRows},
    {CatalogueFamily::Transforms, "Matrix and series transforms", kTransformsRows},
    {CatalogueFamily::RowStatistics, "Row-wise statistics", kRowStatisticsRows},
    {CatalogueFamily::Finance, "Finance", kFinanceRows},
    {CatalogueFamily::Calculus, "Calculus", kCalculusRows},
    {CatalogueFamily::Structural, "Structural predicates and linear forms", kStructuralRows},
    {CatalogueFamily::ListAlgebra, "List algebra", kListAlgebraRows},
    {CatalogueFamily::ModeWrappers, "Mode wrappers and time expansion", kModeWrappersRows},
    {CatalogueFamily::Compilation, "Compilation, replacement and normal forms", kCompilationRows},
    {CatalogueFamily::CumulativeDummies, "Cumulative dummies", kCumulativeDummiesRows},
};

}  // namespace

std::span<const CatalogueFamilySpan> CatalogueFamilies() { return kFamilies; }

std::span<const CatalogueAlias> CatalogueAliases() { return kAliases; }

}  // namespace quillon
