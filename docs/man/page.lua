-- Turns the Markdown of a page of this folder into what pandoc writes as a page for man. make.sh hands in what it needs:
-- lang, program (the built vor_kel_batch) and root (the checkout). Comments of the page are replaced:
--   <!-- usage COMMAND -->            how the command is called and what it does
--   <!-- options COMMAND [NAME ...]-->  its arguments and options, or those named; without names, those not yet listed
--   <!-- common options -->           the options of every command
--   <!-- from FILE -->                a whole page without its title
--   <!-- from FILE: HEADING -->       what stands below this heading
local format = "commonmark+pipe_tables+definition_lists"
local lang, program, root
local helps = {}   -- the parsed help of each command, "" for the program's own
local listed = {}  -- "fit --json" is true once it stands in the page
local english = {}  -- the texts of en.txt by the Italian ones
local used = {}     -- which of them the page has

local words = {
  it = { needs = "Richiede", excludes = "Esclude" },
  en = { needs = "Needs", excludes = "Excludes" },
}

local function readAll(path)
  local file = assert(io.open(path))
  local text = file:read("a")
  file:close()
  return text
end

local function readEnglish()
  local italian
  for line in readAll(root .. "/docs/man/en.txt"):gmatch("[^\n]+") do
    if line:match("^  ") then
      english[italian] = line:sub(3)
    elseif not line:match("^#") then
      italian = line
    end
  end
end

-- A text of the help in the language of the page.
local function told(text)
  if lang == "it" then
    local accented = { ["a`"] = "à", ["e`"] = "è", ["i`"] = "ì", ["o`"] = "ò", ["u`"] = "ù" }
    return (text:gsub("che`", "ché"):gsub("[aeiou]`", accented))
  end
  used[text] = true
  return english[text] or error("docs/man/en.txt lacks: " .. text)
end

-- "TESTO" and the like; what is typed as it stands is no name of a value and stays.
local function valueName(word)
  return (word:gsub("%u%u%u%u+", function(name) return name == "FILE" and name or told(name) end, 1))
end

-- An entry of a help: "  --band 68|95 Con: --figure", then a text in column 30 or in the next line.
local function parsedEntry(head, text)
  local entry = { names = {}, values = {}, needs = {}, excludes = {}, text = text }
  local into = entry.values
  for word in head:gmatch("%S+") do
    if #entry.names == 0 then
      for name in word:gmatch("[^,]+") do table.insert(entry.names, name) end
    elseif word == "Con:" then
      into = entry.needs
    elseif word == "Senza:" then
      into = entry.excludes
    elseif word == "..." then
      entry.repeated = true
    elseif word ~= "NECESSARIO" then
      table.insert(into, word)
    end
  end
  return entry
end

local function help(command)
  if helps[command] then return helps[command] end
  local page = { entries = {} }
  local arguments = command == "" and { "--help" } or { command, "--help" }
  local head  -- of an entry whose text follows
  local lines = pandoc.List()
  for line in pandoc.pipe(program, arguments, ""):gmatch("[^\r\n]+") do lines:insert(line) end
  for i, line in ipairs(lines) do
    local margin, goesOn = line:sub(1, 30), lines[i + 1] and lines[i + 1]:match("^" .. (" "):rep(30))
    if line:match("^Uso: ") then
      page.usage = line:match("^Uso: %S+%s*(.*)")
    elseif line:match("^  ") and goesOn then
      head = line
    elseif line:match("^  ") then
      table.insert(page.entries, parsedEntry(margin:match("%S") and margin or head, line:sub(31)))
    elseif not page.text then
      page.text = line
    end
  end
  helps[command] = page
  return page
end

local function isCommon(entry)
  for _, common in ipairs(help("").entries) do
    if common.names[#common.names] == entry.names[#entry.names] then return true end
  end
  return false
end

local function codes(names)
  local inlines = pandoc.List()
  for i, name in ipairs(names) do
    if i > 1 then inlines:extend({ pandoc.Str(","), pandoc.Space() }) end
    inlines:insert(pandoc.Code(name))
  end
  return inlines
end

-- A sentence, with options as they are typed.
local function prose(text)
  local last = text:match("[.:]$") and "" or "."
  local inlines = pandoc.List()
  for word in (text .. last):gmatch("%S+") do
    if #inlines > 0 then inlines:insert(pandoc.Space()) end
    local name, rest = word:match("^(%-%-%a[%a-]*)(.*)$")
    if name then
      inlines:extend({ pandoc.Code(name), pandoc.Str(rest) })
    else
      inlines:insert(pandoc.Str(word))
    end
  end
  return inlines
end

-- Adds "Needs --grid."
local function sentence(inlines, word, names)
  if #names == 0 then return end
  inlines:extend({ pandoc.Space(), pandoc.Str(word), pandoc.Space() })
  inlines:extend(codes(names))
  inlines:insert(pandoc.Str("."))
end

-- The text of an option may begin with what stands for its value: "NOME=VALORE: parametro variabile".
local function optionItem(entry)
  local term, text, values = codes(entry.names), told(entry.text), entry.values
  local value, rest = text:match("^([^%s:]*[=,][^%s:,]+):? (.+)$")
  if value then values, text = { value }, rest:gsub("^%l", string.upper) end
  for _, name in ipairs(values) do
    if name:match("^=") then
      term:extend({ pandoc.Str("[="), pandoc.Emph(name:sub(2)), pandoc.Str("]") })
    else
      term:extend({ pandoc.Space(), pandoc.Emph(value or valueName(name)) })
    end
  end
  local body = prose(text)
  sentence(body, words[lang].needs, entry.needs)
  sentence(body, words[lang].excludes, entry.excludes)
  return { term, { { pandoc.Plain(body) } } }
end

local function argumentItem(entry)
  local term, text = pandoc.List({ pandoc.Emph(valueName(entry.names[1])) }), told(entry.text)
  if entry.repeated then term:insert(pandoc.Str("...")) end
  local endings = entry.values[1]:match("^FILE(%..+)")
  if endings then text = text .. " (" .. endings:gsub("|", ", .") .. ")" end
  return { term, { { pandoc.Plain(prose(text)) } } }
end

local function item(entry)
  return entry.names[1]:match("^%-") and optionItem(entry) or argumentItem(entry)
end

-- The entries of a command that are named, or all that do not yet stand in the page.
local function options(command, names)
  local items = pandoc.List()
  for _, entry in ipairs(help(command).entries) do
    local name = entry.names[#entry.names]
    local key = command .. " " .. name
    local wanted = names == "" and not listed[key] or (" " .. names .. " "):find(" " .. name .. " ", 1, true)
    if wanted and not isCommon(entry) then
      assert(not listed[key], key .. " stands in the page twice")
      listed[key] = true
      items:insert(item(entry))
    end
  end
  for name in names:gmatch("%S+") do assert(listed[command .. " " .. name], command .. " has no " .. name) end
  return #items > 0 and { pandoc.DefinitionList(items) } or {}
end

local function commonOptions()
  local items = pandoc.List()
  for _, entry in ipairs(help("").entries) do
    if entry.names[1]:match("^%-") then items:insert(item(entry)) end
  end
  return { pandoc.DefinitionList(items) }
end

-- The text of a command may end in what is typed: "Calcola una formula: eval FORMULA"; its arguments join the line above.
local function usage(command)
  local page = help(command)
  local text = told(page.text)
  local meaning, typed = text:match("^(.-): (.+)$")
  local arguments = typed and typed:match("^" .. command .. "( .+)$")
  local line = page.usage:gsub("^%S+%s*", ""):gsub("%u%u%u%u+", valueName) .. (arguments or "")
  local about = prose(arguments and meaning or typed and meaning .. ":" or text)
  if typed and not arguments then about:extend({ pandoc.Space(), pandoc.Code(typed) }) end
  return { pandoc.Para({ pandoc.Code("vor_kel_batch " .. command), pandoc.Space(), pandoc.Str(line) }), pandoc.Para(about) }
end

-- A page without its title, its parts as parts of ours; or what stands below one heading.
local function from(file, heading)
  local blocks = pandoc.List()
  local level = heading == "" and 1 or nil
  for _, block in ipairs(pandoc.read(readAll(root .. "/" .. file), format).blocks) do
    if block.t == "Header" and heading ~= "" and (not level or block.level <= level) then
      level = pandoc.utils.stringify(block) == heading and block.level or nil
    elseif block.t == "Header" and heading == "" then
      if block.level == 2 then
        blocks:insert(pandoc.Header(1, pandoc.Str(pandoc.text.upper(pandoc.utils.stringify(block)))))
      elseif block.level > 2 then
        blocks:insert(pandoc.Header(2, block.content))
      end
    elseif level and block.t == "Header" then
      blocks:insert(pandoc.Header(2, block.content))
    elseif level then
      blocks:insert(block)
    end
  end
  assert(#blocks > 0, file .. " has no heading: " .. heading)
  return blocks
end

local function replaced(comment)
  local verb, command, names = comment:match("^<!%-%- (%a+) ([%w]+) ?(.-) ?%-%->")
  if verb == "usage" then return usage(command) end
  if verb == "common" then return commonOptions() end
  if verb == "options" then return options(command, names) end
  local file, heading = comment:match("^<!%-%- from ([^:%s]+):? ?(.-) %-%->")
  return file and from(file, heading) or error("unknown: " .. comment)
end

local function expand(document)
  lang = pandoc.utils.stringify(document.meta.lang)
  program = pandoc.utils.stringify(document.meta.program)
  root = pandoc.utils.stringify(document.meta.root)
  if lang == "en" then readEnglish() end
  local blocks = pandoc.List()
  for _, block in ipairs(document.blocks) do
    blocks:extend(block.t == "RawBlock" and replaced(block.text) or { block })
  end
  document.blocks = blocks
  return document
end

-- Every option of every command that the page tells must stand in it.
local function complete(document)
  for command, page in pairs(helps) do
    for _, entry in ipairs(command == "" and {} or page.entries) do
      local key = command .. " " .. entry.names[#entry.names]
      assert(listed[key] or isCommon(entry), "the page lacks " .. key)
    end
  end
  if not helps[""] then return end
  for _, entry in ipairs(help("").entries) do
    assert(entry.names[1]:match("^%-") or helps[entry.names[1]], "the page lacks " .. entry.names[1])
  end
  for text in pairs(english) do assert(used[text], "docs/man/en.txt has too much: " .. text) end
end

-- What is typed has signs that roff would replace by prettier ones.
local escapes = {
  ["\\"] = "\\[rs]", ["'"] = "\\[aq]", ['"'] = "\\[dq]", ["`"] = "\\[ga]", ["^"] = "\\[ha]", ["~"] = "\\[ti]",
  ["-"] = "\\-",
}
local function verbatim(text)
  return (text:gsub("[\\'\"`^~-]", escapes))
end

local function codeBlock(block)
  local lines = verbatim(block.text):gsub("%f[^\n\0]%.", "\\&.")
  return pandoc.RawBlock("man", ".PP\n.RS 4\n.nf\n" .. lines .. "\n.fi\n.RE")
end

local function hasImage(block)
  local found = false
  pandoc.walk_block(block, { Image = function() found = true end })
  return found
end

-- Two columns become terms and what they mean: a page is too narrow for them.
local function tableOf(block)
  if hasImage(block) then return {} end
  local inlines = pandoc.utils.blocks_to_inlines
  local simple = pandoc.utils.to_simple_table(block)
  local head, items = simple.headers, pandoc.List()
  if #head ~= 2 then return block end
  if #head[1] > 0 and #head[2] > 0 then
    items:insert({ { pandoc.Emph(inlines(head[1])) }, { { pandoc.Plain({ pandoc.Emph(inlines(head[2])) }) } } })
  end
  for _, row in ipairs(simple.rows) do items:insert({ inlines(row[1]), { row[2] } }) end
  return pandoc.DefinitionList(items)
end

local function link(inline)
  if inline.target:match("formats%.md") then return { pandoc.Code("vor_kel_formati"), pandoc.Str("(5)") } end
  return pandoc.Emph(inline.content)
end

local function paragraph(block)
  if hasImage(block) then return {} end
end

return {
  { Pandoc = expand },
  { Table = tableOf, Link = link, Para = paragraph },
  { Code = function(inline) return pandoc.RawInline("man", "\\f[B]" .. verbatim(inline.text) .. "\\f[R]") end,
    CodeBlock = codeBlock },
  { Pandoc = complete },
}
