// The equations of state: pressure in GPa from compression or a cell length, and temperature. Pure
// functions of 64-bit floats.
//
// x = V/V0, TK in kelvin, TC in degrees Celsius, lengths in angstrom, volumes in cubic angstrom.
// Faults pass where the arithmetic has no finite real result: DivisionByZero, BadArgument (power or
// logarithm of a bad argument), Overflow.
#pragma once

namespace dorvane {

// D(x) = (3/x^3) * integral from 0 to x of t^3/(e^t - 1) dt: 1 for x <= 0, a series up to 0.07, the
// asymptote pi^4/(5 x^3) above 11, between them a march in steps of about 0.01 that ends up to
// 1.4e-5/x below the integral. Faults (BadArgument, Overflow) for NaN and infinity.
double DebyeFunc(double x);

// Sodium chloride: Born-Mayer lattice with a Debye thermal term, after D. L. Decker, J. Appl. Phys.
// 42 (1971) 3239.
double PressNaCl(double x, double TK);

// Platinum by a table of shock-wave isotherms, after J. C. Jamieson, J. N. Fritz and M. H.
// Manghnani (1982), in: High-Pressure Research in Geophysics, 27, which it holds to 0.02 GPa
// between 300 and 1500 K for x <= 1. 0 for x >= 1.061 and x <= 0.819.
double PressPtTable(double x, double TK);

// Gold: third-order Birch-Murnaghan with a linear thermal term, after O. L. Anderson, D. G. Isaak
// and S. Yamamoto, J. Appl. Phys. 65 (1989) 1534.
double PressAu(double x, double TK);

// Magnesium oxide by a table like that of platinum, from the same work. Its polynomials in the
// temperature hold from 300 to 1500 K and are up to 0.8 GPa off at 2000 K. Outside of 0.74..1.1 the
// outermost cubic goes on, unguarded.
double PressMgOTable(double x, double TK);

// Platinum: third-order Birch-Murnaghan on the volume expanded to TK, near the isotherms
// of PressPtTable (for x <= 1.02 within 0.25 GPa up to 2000 K). V0 is the volume at 300 K.
double PressPtB(double V, double V0, double TK);

// Platinum: Vinet form, after N. C. Holmes et al., J. Appl. Phys. 66 (1989) 2962. r = a /
// kPlatinumLength. The thermal term vanishes at 0 degrees Celsius, not at 300 K: 0.19 GPa are left
// at room temperature without load.
double PressPtH(double r, double TC);

// Length of the platinum cell that PressPtH refers to, angstrom.
constexpr double kPlatinumLength = 3.9231;

// Hexagonal boron nitride by its c axis: third-order Birch-Murnaghan form of the length, constants
// linear in TC. No pressure at 6.6562 angstrom and 300 K.
double PressHBN(double c, double TC);

}  // namespace dorvane
