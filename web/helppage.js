// The help window: one section of the project's documentation (a Markdown file the server serves
// under /help/), chosen by the page's query: ?doc=dialogs.md&section=Key%20Frame%20Animation.
// Only the Markdown the documentation uses is understood: headings, paragraphs, lists, tables,
// code spans, bold text and links.

const escapeHtml = (text) =>
  text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;').replace(/"/g, '&quot;');

function inline(text) {
  // Code spans first, so nothing inside them is read as Markdown.
  return text.split(/(`[^`]*`)/).map((part) => {
    if (part.startsWith('`') && part.endsWith('`') && part.length >= 2)
      return `<code>${escapeHtml(part.slice(1, -1))}</code>`;
    return escapeHtml(part)
      .replace(/\*\*([^*]+)\*\*/g, '<strong>$1</strong>')
      .replace(/\[([^\]]+)\]\(([^)\s]+)\)/g, (_, label, href) =>
        /^(https?:|#|[\w.-]+\.md)/.test(href) ? `<a href="${href}">${label}</a>` : label);
  }).join('');
}

const cells = (row) => row.trim().replace(/^\||\|$/g, '').split('|').map((c) => c.trim());

// The lines of the section whose heading is `title` (any level), up to the next heading of the
// same or a higher level; the whole file when there is no such section.
function sectionOf(lines, title) {
  const start = lines.findIndex((l) => /^#+ /.test(l) && l.replace(/^#+ /, '').trim() === title);
  if (start < 0) return lines;
  const level = lines[start].match(/^#+/)[0].length;
  let end = start + 1;
  while (end < lines.length && !(lines[end].match(/^#+ /) && lines[end].match(/^#+/)[0].length <= level)) end++;
  return lines.slice(start, end);
}

export function render(markdown) {
  const html = [];
  const lines = markdown.split('\n');
  for (let i = 0; i < lines.length;) {
    const line = lines[i];
    if (!line.trim()) { i++; continue; }
    const heading = line.match(/^(#{1,6}) (.*)$/);
    if (heading) {
      html.push(`<h${heading[1].length}>${inline(heading[2])}</h${heading[1].length}>`);
      i++;
    } else if (line.startsWith('|')) {
      const rows = [];
      while (i < lines.length && lines[i].startsWith('|')) rows.push(lines[i++]);
      const body = rows.slice(2).map((r) => `<tr>${cells(r).map((c) => `<td>${inline(c)}</td>`).join('')}</tr>`);
      html.push(`<table><thead><tr>${cells(rows[0]).map((c) => `<th>${inline(c)}</th>`).join('')}</tr></thead>` +
        `<tbody>${body.join('')}</tbody></table>`);
    } else if (/^[-*] /.test(line)) {
      const items = [];
      while (i < lines.length && (/^[-*] /.test(lines[i]) || /^ {2,}\S/.test(lines[i]))) {
        if (/^[-*] /.test(lines[i])) items.push(lines[i].slice(2));
        else items[items.length - 1] += ' ' + lines[i].trim();
        i++;
      }
      html.push(`<ul>${items.map((t) => `<li>${inline(t)}</li>`).join('')}</ul>`);
    } else if (line.startsWith('```')) {
      const code = [];
      for (i++; i < lines.length && !lines[i].startsWith('```'); i++) code.push(lines[i]);
      i++;
      html.push(`<pre><code>${escapeHtml(code.join('\n'))}</code></pre>`);
    } else {
      const paragraph = [];
      while (i < lines.length && lines[i].trim() && !/^(#|\||[-*] |```)/.test(lines[i])) paragraph.push(lines[i++]);
      html.push(`<p>${inline(paragraph.join(' '))}</p>`);
    }
  }
  return html.join('\n');
}

async function show() {
  const main = document.getElementById('help');
  const query = new URLSearchParams(location.search);
  const doc = query.get('doc') || 'dialogs.md';
  const section = query.get('section') || '';
  try {
    const response = await fetch(`/help/${encodeURIComponent(doc)}`);
    if (!response.ok) throw new Error(`the help page ${doc} is not there (${response.status})`);
    const lines = (await response.text()).split('\n');
    main.innerHTML = render(sectionOf(lines, section).join('\n'));
    document.title = `Help: ${section || doc}`;
  } catch (error) {
    main.innerHTML = `<p id="error">${escapeHtml(String(error.message || error))}</p>`;
  }
}

if (typeof document !== 'undefined') show();
