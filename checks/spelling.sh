#!/usr/bin/env bash
# Fails when an Italian page has a word that neither aspell nor docs/manuale/parole.txt knows, or an apostrophe in the
# place of an accent. Commands, code and the English words of the glossary are left out.
set -euo pipefail
cd "$(dirname "$0")/.."
shopt -s nullglob globstar
export LC_ALL=C.UTF-8
pages=(docs/manuale/*.md docs/man/it/*.md examples/laboratorio/**/*.md)
[ ! -e README.en.md ] || pages+=(README.md) # which is Italian then

# The lines of all pages, each behind the name of its page.
code='``[^`]*(`[^`]+)*``|`[^`]*`|<[^>]*>'
words=$(for page in "${pages[@]}"; do
  english=
  [[ $page != *glossario* ]] || english='s/^(\|[^|]*\|)[^|]*\|/\1/'
  sed -E "/^ *\`\`\`/,/^ *\`\`\`/d; $english" "$page" |
    sed -Ez "s/([[:alpha:]]+')?($code)/ /g; s/\]\([^)]*\)//g; s/'[[*]+/'/g" | sed "s|^|$page\t|"
done)
unknown=$(cut -f 2 <<< "$words" | aspell list --lang=it --encoding=utf-8 | sort -u)
said=$(
  grep . <<< "$unknown" | grep -vxFf docs/manuale/parole.txt |
    while IFS= read -r word; do grep -wF -- "$word" <<< "$words" | sed "s/\t.*/: is \"$word\" a word?/" | sort -u; done
  accented="[Ee]|[Cc]os[iì]|[Pp]i[uù]|[Pp]u[oò]|[Gg]i[aà]|[a-zA-Z]*ch[eé]|[a-z]+it[aà]"
  grep -E "[[:blank:](*]($accented)'([ ,.;:)]|\$)" <<< "$words" | sed 's/\t/: an apostrophe is no accent: /'
) || true
[ -z "$said" ] || { echo "$said"; exit 1; }
