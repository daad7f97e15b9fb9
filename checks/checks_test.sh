#!/usr/bin/env bash
# The checks of the sources refuse what they are there for, and nothing else.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT

begin() { # an empty checkout
  rm -rf "$made"
  mkdir -p "$made"
  cp -r "$root/checks" "$root/.clang-format" "$made"
}
file() { # path, lines
  mkdir -p "$made/$(dirname "$1")"
  printf '%s\n' "${@:2}" > "$made/$1"
}
repeated() { # count, line
  for ((i = 0; i < $1; i++)); do echo "$2"; done
}
verdict() { # check, its arguments
  if "$made/checks/$1.sh" "${@:2}" > "$made/said" 2>&1; then echo held; else echo refused; fi
}
expect() { # "held", "refused" or a part of what is said then, check, what the checkout is, arguments of the check
  case $1 in
    held | refused) [ "$(verdict "$2" "${@:4}")" = "$1" ] ;;
    *) [ "$(verdict "$2" "${@:4}")" = refused ] && grep -qF -- "$1" "$made/said" ;;
  esac || { echo "checks/$2.sh: $3 does not give \"$1\" but:"; cat "$made/said"; exit 1; }
}

layers() { # "held" or "refused", file, include line
  begin
  file "$2" "$3"
  [ "$1" = held ] || set -- "$2: ${2%/*} must not include" "$2" "$3"
  expect "$1" layers "$2 with $3"
}
layers refused base/A.h '#include "session/Session.h"'
layers refused gral/A.cpp '#include "session/Session.h"'
layers refused session/A.h '#include <QString>'
layers refused session/A.cpp '#include "platform/system/SystemFiles.h"'
layers refused expr/A.cpp '#include <unistd.h>'
layers refused analysis/A.cpp '#include "ui/Editor.h"'
layers refused analysis/A.cpp '#include <nlohmann/json.hpp>'
layers refused ui/A.cpp '#include <QtWidgets>'
layers refused batch/A.cpp '#include "ui/qt/forms/MessageForm.h"'
layers refused ui/qt/widgets/A.cpp '#include "ui/qt/forms/A.h"'
layers refused ui/qt/widgets/A.cpp '#include "session/Session.h"'
layers refused ui/qt/forms/A.cpp '#include "ui/qt/ports/A.h"'
layers refused tabulo/A.cpp '#include "ui/qt/forms/A.h"'
layers refused base/A.cpp '#include "nowhere/A.h"'
layers refused expr/A.cpp '#include "session/Session.h"'
layers refused gral/A.cpp '#include "gral/sinks/A.h"'
layers refused numeric/simd/A.cpp '#include "numeric/Elementary.h"'
layers refused expr/A.cpp '#include <sleef.h>'
layers held numeric/simd/A.cpp '#include <sleef.h>'
layers held commands/A.cpp '#include "session/Session.h"'
layers held ui/qt/widgets/A.cpp '#include <QtWidgets>'
layers held batch/A.cpp '#include "ui/qt/devices/A.h"'
layers held base/A.cpp '#include <vector>'
file ui/new/CMakeLists.txt 'vor_library(ui_new DEPENDS base)'
expect "no line of ui/new" layers "a new library"

of_length() { # lines of a function in a file
  file base/A.cpp "void f() {" "$(repeated $(($1 - 2)) ";")" "}"
}
begin
of_length 60
file base/B.cpp "$(repeated 400 "//")"
file base/C.h "int f(int a, int b, int c, std::map<int, int> d, int e, int g, int h);" \
  "int Minimise(int a, int b, int c, int d, int e, int g, int h, int i);"
expect held sizes "each largest size"
of_length 61
expect "f has 61 lines" sizes "a long function"
begin
file base/B.cpp "$(repeated 401 "//")"
expect "base/B.cpp: 401 lines" sizes "a long file"
begin
file base/C.h "int f(int a, int b, int c, int d, int e, int g, int h, int i);"
expect "f has 8 parameters" sizes "a long parameter list"
file bin/ctags "#!/bin/sh" "exit 1"
chmod +x "$made/bin/ctags"
PATH="$made/bin:$PATH" expect refused sizes "a ctags that fails"

begin
file docs/glossary.md '| Name | Meaning | File |' '|---|---|---|' '| `CmpMod`, `CmpLine` | compiler | `expr/A.h`, `expr/A.cpp` |'
file expr/A.h '/// Unit CmpMod.'
file expr/A.cpp 'CmpLine();'
expect held glossary "two names in two files"
file expr/A.h '/// Unit CmpModule.'
expect "CmpMod is not in" glossary "a name that has gone"
file expr/B.h '/// Unit FunMod: functions.'
expect "there is no FunMod" glossary "a unit that the page lacks"
rm "$made/expr/B.h"
file expr/A.h '/// Unit CmpMod, CmpLine.'
rm "$made/expr/A.cpp"
expect "there is no expr/A.cpp" glossary "a file that has gone"
file docs/glossary.md '# Glossary'
expect refused glossary "a page without rows"

begin
file CMakeLists.txt 'project(vor_kel VERSION 1.2 LANGUAGES CXX)'
file CHANGELOG.md '# Changes' '## [1.2] - unreleased' '## [1.1]'
file CONTRIBUTING.md 'The type `base/A.h` is [there](base/A.h).'
file base/A.h
file docs/screenshots/make.sh '# Takes pictures.'
file docs/manuale/a.md '![Fit](../screenshots/fit.png)'
file docs/screenshots/fit.png
file docs/screenshots/make.sh 'picture fit FIT'
file docs/architecture.md '# Architecture' '```mermaid' '```' 'The end.'
while IFS= read -r library; do file "$library/README.md" 'May use: .'; done < <(sed -n 's/^\([a-z/]*\):.*/\1/p' "$root/checks/layers.txt")
"$made/checks/picture.sh" --renew
expect held documents "pages as they should be"
grep -qx 'The end.' "$made/docs/architecture.md" || { echo "checks/picture.sh: takes what stands behind the picture"; exit 1; }
file base/README.md 'May use: Qt.'
expect "base/README.md does not say" documents "a page that allows more"
"$made/checks/picture.sh" --renew
echo 'gral/new: gral' >> "$made/checks/layers.txt"
file gral/new/README.md 'May use: gral.'
expect "shows other libraries" documents "a library that the picture lacks"
"$made/checks/picture.sh" --renew
file CHANGELOG.md '## [1.1]'
expect "version 1.1" documents "a changelog without the newest version"
file CHANGELOG.md '## [1.2]'
rm "$made/base/A.h"
expect 'no base/A.h' documents "a file that has gone"
file CONTRIBUTING.md '[there](docs/gone.md#part)'
expect "no docs/gone.md" documents "a page that has gone"
file CONTRIBUTING.md '[there](docs/architecture.md#part), [elsewhere](https://example.org/page)'
expect held documents "links that lead somewhere"
file docs/screenshots/old.png
expect 'screenshots/old.png' documents "a picture that is shown nowhere"
rm "$made/docs/screenshots/"*.png
expect 'screenshots/fit.png' documents "a picture that was not taken"

begin
file docs/manuale/parole.txt fit
file docs/manuale/99-glossario.md "Così dell'\`errror\` è [sull'errore](a.md), dell'*errore* e \`due" 'rihge`.' '' \
  '| errore | fault | sì |' '' '```' 'sbaliato' '```'
expect held spelling "a page with code and English words"
file bin/aspell '#!/bin/sh' 'exit 1'
chmod +x "$made/bin/aspell"
PATH=$made/bin:$PATH expect refused spelling "a page that aspell cannot look at"
file examples/laboratorio/a/README.md "La riga è sbaliata."
expect 'examples/laboratorio/a/README.md: is "sbaliata" a word?' spelling "a word with a fault"
file examples/laboratorio/a/README.md "E' una riga."
expect 'an apostrophe' spelling "an apostrophe for an accent"

page() { # "held" or a part of what is said, what the page is, its lines
  file docs/manuale/a.md "${@:3}"
  expect "$1" commands "$2" "$made"
}
begin
file examples/ohm.dat '1 2'
page held "commands as they are shown" '```sh' 'cat ohm.dat; echo err >&2; false' '```' '' '```text' '1 2' 'err' '```' '```' 'false' '```'
page '+1 2' "another print" '```sh' 'cat ohm.dat' '```' '```text' '1 3' '```'
"$made/checks/commands.sh" "$made" --renew
expect held commands "a page that was renewed" "$made"
page 'a command fails' "a failing command" '```sh' 'false' 'true' '```'
page 'no command prints' "a print of nothing" '```sh' 'true' '```' '```text' '```' '```text' '```'
page 'at the margin' "a command in a list" '- first' '  ```sh' '  true' '  ```'
page 'does not end' "an open block" '```sh' 'true'
page 'no page shows' "a page without commands" '```' 'true' '```'
file examples/lab/a.md '```sh' 'cat a.dat' '```'
file examples/lab/a.dat
file README.md '```sh' 'cat examples/lab/a.dat' '```'
expect held commands "commands in the folders of their pages" "$made"
file examples/lab/a.md '```sh' 'echo 2 > a.dat' '```'
expect 'another a.dat' commands "a sample that its page makes otherwise" "$made"

begin
file vor_kel_batch '#!/bin/sh' "sed -n \"/^:\$1$/,/^:/p\" \"\$0\" | sed 1d | sed '\$d'; exit" \
  ':--help' 'Analisi' 'Uso: p COMANDO' '' 'Opzioni:' '  --help                      Aiuto' '' 'Comandi:' \
  '  fit                         Adatta' \
  ':fit' 'Adatta' 'Uso: p fit DATI' '' 'Argomenti:' '  DATI FILE.DAT NECESSARIO a b c' '                              File dati' \
  '' 'Opzioni:' '  --help                      Aiuto' ':'
chmod +x "$made/vor_kel_batch"
for language in it en; do file docs/man/$language/vor_kel_batch.1.md '<!-- usage fit -->'; done
file docs/man/en.txt '# Commands' 'Adatta' '  Fits' '' 'File dati' '  Data file' 'Aiuto' '  Help' 'NUMERO' '  NUMBER'
expect held man "a help in English" "$made"
file docs/man/it/b.1.md
expect "one language" man "a page in Italian only" "$made"
rm "$made/docs/man/it/b.1.md"
file docs/man/en/vor_kel_batch.1.md
expect "en/vor_kel_batch.1.md does not tell of fit" man "a page without a command" "$made"
file docs/man/en/vor_kel_batch.1.md '<!-- usage fit -->'
file docs/man/en.txt 'Adatta' '  Fits' 'File dati' '  Data file'
expect "> Aiuto" man "a text without English" "$made"
file docs/man/en.txt 'Adatta' '  Fits' 'File dati' '  Data file' 'Aiuto' '  Help' 'Altro' '  Else'
expect "< Altro" man "English for a text that has gone" "$made"
file docs/man/en.txt 'Adatta' '  Fits' 'File dati' '  Data file' 'Aiuto' '  Help'
file pages/man1/vor_kel_batch.1 '.TH vor_kel_batch 1' '.SH NAME' 'vor_kel_batch \- b'
file pages/it/man1/vor_kel_batch.1 '.TH vor_kel_batch 1' '.SH NOME' 'vor_kel_batch \- b'
expect held man "pages as they should be" "$made" "$made/pages"
file pages/man1/vor_kel_batch.1 '.TH vor_kel_batch 1' '.SH NAMES' 'vor_kel_batch \- b' '.XY' '.PP' '[b](c.md)'
expect "XY" man "a page that man warns of" "$made" "$made/pages"
for fault in "no name" "shows Markdown"; do grep -q "$fault" "$made/said" || { cat "$made/said"; exit 1; }; done
file bin/man '#!/bin/sh' 'exit 1'
chmod +x "$made/bin/man"
PATH=$made/bin:$PATH expect "vor_kel_batch.1: man fails" man "a man that fails" "$made" "$made/pages"

begin
file base/A.cpp '// QUIRK: odd'
expect "base has intended oddities" quirks "an oddity without a test"
file tests/base/ATest.cpp 'TEST(A, QUIRK_IsOdd) {}'
expect held quirks "an oddity with a test"

begin
(cd "$made" && mkdir -p docs examples $(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt))
file base/A.cpp
file tests/base/sub/ATest.cpp 'TEST(A, Holds) {'
file ui/qt/forms/B.cpp
file tests/ui/OtherTest.cpp 'TEST_F(Other, ShowsB) {'
file tests/table.txt '# source, tests, test' 'ui/qt/forms/B ui/OtherTest ShowsB'
expect held tests "one source with tests of its name and one in the table"
file ui/qt/forms/C.cpp
file tests/ui/CTest.cpp 'TEST(C, Holds) {'
expect "ui/qt/forms/C.cpp: no tests" tests "a source whose name only tests of another program have"
file tests/ui_qt/CTest.cpp 'TEST(C, Holds) {'
expect held tests "tests in the program of the source"
file tests/ui_qt/BTest.cpp 'TEST(B, Holds) {'
expect "ui/qt/forms/B is found by its name" tests "a line too many"
rm "$made/tests/ui_qt/BTest.cpp"
file tests/ui/OtherTest.cpp '// TEST_F(Other, ShowsB) {'
expect "tests/ui/OtherTest.cpp has no ShowsB" tests "a test that has gone"
rm "$made/ui/qt/forms/B.cpp"
expect "there is no ui/qt/forms/B.cpp" tests "a source that has gone"

begin
file tests/base/ATest.py 'print("EXPECT_EQ(a(), 2);")'
file tests/base/ATest.cpp '  EXPECT_EQ(a(), 2);'
expect held figures "a figure of its generator"
file tests/base/ATest.cpp '  EXPECT_EQ(a(), 3);'
expect "tests/base/ATest.cpp has no: EXPECT_EQ(a(), 2);" figures "a figure of somebody else"
file tests/base/ATest.py 'raise ValueError'
expect refused figures "a generator that fails"
file tests/base/ATest.py
expect "prints nothing" figures "a generator without figures"

begin
file base/A.cpp 'int a;'
expect held format "a source as it should be laid out"
file base/A.cpp 'int  a;'
expect "A.cpp" format "a source with two blanks"
file base/A.cpp "// $(repeated 117 à | tr -d '\n')"
expect held format "a comment of letters of two bytes"
file base/A.cpp "// $(repeated 118 à | tr -d '\n')"
expect "base/A.cpp:1:" format "a comment of 121 characters"

begin
rm -rf "$made/checks" && mkdir "$made/checks" && cp "$root/checks/lint" "$root/checks/layers.txt" "$made/checks"
(cd "$made" && mkdir -p $(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt))
looks_at() { # what the checkout is, sources in the order of their names
  local said
  said=$("$made/checks/lint" --list | tr '\n' ' ')
  [ "$said" = "${*:2} " ] || { echo "checks/lint: $1 looks at $said"; exit 1; }
}
repository() { git -C "$made" -c user.name=a -c user.email=a "$@" > "$made/said" 2>&1 || { cat "$made/said"; exit 1; }; }
commit() {
  repository add -- base ui
  repository commit -m "$1"
}
file base/A.cpp '#include "base/A.h"'
file base/A.h
file base/B.h
file ui/B.cpp '#include "base/B.h"'
looks_at "an archive" base/A.cpp ui/B.cpp
repository init -b main
commit one
looks_at "a clone of one commit" base/A.cpp ui/B.cpp
file ui/C.cpp
commit two
looks_at "main" ui/C.cpp
repository switch -c branch
file base/A.h '//'
commit three
file base/B.h '//'
file base/D.cpp
looks_at "a branch with work that is not committed" base/A.cpp base/D.cpp ui/B.cpp
commit four
repository update-ref refs/remotes/origin/main branch
looks_at "a branch that has landed" base/D.cpp ui/B.cpp
repository switch -c headers
file base/B.h '#include "base/C.h"'
file base/C.h
commit five
file base/C.h '//'
file base/Z.h
commit six
repository update-ref refs/remotes/origin/main headers~1
looks_at "a header within another, and one that nobody includes" ui/B.cpp

begin
(cd "$made/checks" && mv mutate mutate.sh && : > mutants.txt)
file base/A.cpp '#include "a.h" // 1 + 2' 'static_assert(1 < 2);' 'const char* const kTable[] = {' '  {"a < b", 12, 3.5},' '};' \
  'bool f(int a, int b) {' '  if (a < 2 && true) g(a, "b");' '  return a;' '}'
"$made/checks/mutate.sh" --list | grep '^+' | LC_ALL=C sort > "$made/said"
diff "$made/said" - << 'EOF' || { echo "checks/mutate makes other faults"; exit 1; }
+ if (!(a < 2 && true)) g(a, "b");
+ if (a < (2 + 1) && true) g(a, "b");
+ if (a < (2 - 1) && true) g(a, "b");
+ if (a < 2 && false) g(a, "b");
+ if (a < 2 && true) g("b", a);
+ if (a < 2 && true) {}
+ if (a < 2 || true) g(a, "b");
+ if (a <= 2 && true) g(a, "b");
+ if (a >= 2 && true) g(a, "b");
+ return {};
EOF
file checks/mutants.txt '# Faults' '' 'base/A.cpp' '- return a;' '+ return {};' 'a is 0 there.'
[ "$("$made/checks/mutate.sh" --list | wc -l)" = 30 ] || { echo "checks/mutate: a known fault stops it"; exit 1; }
file checks/mutants.txt 'base/A.cpp' '- return b;' '+ return {};' 'b is 0 there.'
expect 'base/A.cpp has no more: return b;' mutate "a line that has gone" --list

begin
file session/Session.h 'Int16 ErrFlag;'
file platform/Dialogs.h 'class Dialogs;'
file commands/CommandTable.cpp '"MenDat"'
for ((n = 0; n < 41; n++)); do
  file "ui/A$n.cpp" '#include "session/Session.h"' 'void f(Dialogs& dialogs);'
done
file ui/B.cpp "$(repeated 1000 "//")" 'session.ErrFlag = 0;' 'choose("MenDatLet");'
file numeric/A.cpp '#include "session/Session.h"' 'class Dialogs;'
for library in $(sed -n 's/^\([a-z]*\):.*/\1/p' "$root/checks/layers.txt"); do mkdir -p "$made/$library"; done
expect "TOO MUCH" structure "a checkout beyond every limit"
[ "$(grep -c "TOO MUCH" "$made/said")" = "$(grep -c "(at most" "$made/said")" ] || { cat "$made/said"; exit 1; }
file platform/Dialogs.h 'class Boxes;'
expect "there is no Dialogs" structure "a port with another name"

begin
symbols() { # "held" or "refused", the source of the kernels, that of a library
  local said=refused
  file kernels.cpp "$2"
  file library.cpp "$3"
  g++ -c "$made/kernels.cpp" -o "$made/kernels.o"
  g++ -c "$made/library.cpp" -o "$made/library.o"
  "$made/checks/symbols.sh" "$made/kernels.o" "$made/library.o" > "$made/said" && said=held
  [ "$said" = "$1" ] || { echo "checks/symbols.sh: $2 $3 is not $1"; cat "$made/said"; exit 1; }
}
kernels='static double twice(double x) { return 2 * x; } extern double (*const kTable)(double) = twice;'
library='extern "C" double sqrt(double x); double f(double x) { return sqrt(x); }'
symbols held "$kernels" "$library"
symbols refused "${kernels/static/inline}" "$library"
symbols refused "$kernels" "${library//sqrt/exp}"
rm "$made/library.o"
expect refused symbols "a library that is not there" "$made/kernels.o" "$made/library.o"
echo "the checks refuse what they are there for"
