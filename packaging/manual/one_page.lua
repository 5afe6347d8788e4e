-- The texts of docs become one page, so a link from one to another becomes a link within the page.
-- Links that lead to no text of the manual stop the build.
local first_heading = {
  ["manual.md"] = "#using-tarnwick",
  ["receivers.md"] = "#gps-receivers",
  ["file-formats.md"] = "#the-files",
}

function Link(link)
  local file, heading = link.target:match("^([%w-]+%.md)(.*)$")
  if file then
    assert(first_heading[file], "the manual has no page " .. file)
    link.target = heading ~= "" and heading or first_heading[file]
  end
  return link
end
