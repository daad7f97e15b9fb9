// A process that does nothing: what every start costs.

int main() {
  return 0;
}
