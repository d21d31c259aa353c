// Amounts of an invoice or of one of its documents.
#pragma once

namespace facturation {

struct Totals {
  double ht = 0;
  double tva = 0;
  double ttc = 0;

  Totals& operator+=(const Totals& other) {
    ht += other.ht;
    tva += other.tva;
    ttc += other.ttc;
    return *this;
  }
};

/// True when two amounts are the same to the cent.
inline bool same_amount(double a, double b) {
  const double difference = a - b;
  return difference < 0.005 && difference > -0.005;
}

}  // namespace facturation
