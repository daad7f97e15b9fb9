#!/usr/bin/env bash
# Fails when a page links a file that does not exist, when the newest version of CHANGELOG.md is not the project's, when
# pages for developers show other libraries than checks/layers.txt, when they name a file that there is not, when a
# picture of the windows is shown nowhere or taken by no script, and when what desktops and editors read is no XML.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0

while IFS= read -r page; do
  while IFS= read -r target; do
    target=${target%%#*}
    [ -z "$target" ] || [ -e "$(dirname "$page")/$target" ] && continue
    echo "$page: there is no $target"
    status=1
  done < <(sed '/^```/,/^```/d' "$page" | grep -oE '\]\([^) ]+\)' | sed 's/^](//; s/)$//' | grep -vE '^[a-z]+:')
done < <(find . -path ./build -prune -o -path './build-*' -prune -o -name '*.md' -print)

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
newest=$(grep -m1 -oE '^## \[?[0-9][0-9.]*' CHANGELOG.md | tr -d '#[ ')
if [ "$newest" != "$version" ]; then
  echo "CHANGELOG.md begins with version $newest, CMakeLists.txt has $version"
  status=1
fi

if ! diff <(checks/picture.sh) <(sed -n '/^```mermaid$/,/^```$/p' docs/architecture.md) > /dev/null; then
  echo "docs/architecture.md shows other libraries than checks/layers.txt: checks/picture.sh --renew"
  status=1
fi
pages=(CONTRIBUTING.md docs/architecture.md)
while IFS=: read -r library below; do
  pages+=("$library/README.md")
  may=$(sed 's/^ *//; s/ /, /g' <<< "$below")
  grep -qsxF "May use: ${may:-nothing}." "$library/README.md" && continue
  echo "$library/README.md does not say what checks/layers.txt does: checks/picture.sh --renew"
  status=1
done < <(grep '^[a-z]' checks/layers.txt)

# checks/pictures.sh compares them with the windows, which takes longer.
shopt -s nullglob
shown=$(cat README*.md docs/manuale/*.md)
taken=$(sed -n 's/^picture \([a-z-]*\) .*/\1/p' docs/screenshots/make.sh)
for name in $(printf '%s\n' docs/screenshots/*.png | sed 's#.*/##; s/\.png$//') $taken; do
  [ -e "docs/screenshots/$name.png" ] && grep -qx "$name" <<< "$taken" && grep -qF "screenshots/$name.png" <<< "$shown" && continue
  echo "docs/screenshots/$name.png is not there, docs/screenshots/make.sh does not take it, or no page shows it"
  status=1
done

# checks/package.sh looks closer at them, where they are installed.
[ ! -d packaging ] ||
  find packaging -regex '.*\.\(xml\|svg\|lang\)\(\.in\)?' -exec xmllint --nonet --noout {} + || status=1

files=$(find . -path ./build -prune -o -type f -print)
while IFS=: read -r page name; do
  name=${name#*../}
  grep -q "/${name//./\\.}\$" <<< "$files" && continue
  echo "$page: there is no $name"
  status=1
done < <(grep -oHE '`[A-Za-z0-9_./]+\.(h|cpp|inc|sh|txt|md|py)`' "${pages[@]}" | tr -d '`')
exit $status
