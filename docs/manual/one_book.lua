-- Chapters that stand in one document: a link to the page of a chapter becomes one to its heading.
function Link(link)
  local page, place = link.target:match('^([%w_]+)%.html#?([%w_%-]*)$')
  if page then
    link.target = '#' .. (place ~= '' and place or page)
  end
  return link
end
