// Labels as the add-on writes them: '&' marks the mnemonic letter, '&&' is one '&', line feeds and
// trailing blanks are kept (docs/ui-scripting.md, "The model").

// {text, key}: the text without markers and the mnemonic letter (lower case), or null.
export function parseMnemonic(label) {
    let text = '';
    let key = null;
    let index = -1;
    for (let i = 0; i < label.length; ++i) {
        const c = label[i];
        if (c === '&' && i + 1 < label.length) {
            const next = label[i + 1];
            if (next === '&') {
                text += '&';
            } else if (key === null) {
                key = next.toLowerCase();
                index = text.length;
                text += next;
            } else {
                text += next;
            }
            ++i;
        } else {
            text += c;
        }
    }
    return { text, key, index };
}

// The label as plain text for comparisons and ARIA names: markers gone, blanks folded.
export function plainText(label) {
    return parseMnemonic(label || '').text.replace(/\s+/g, ' ').trim();
}

// Fills element with the label, the mnemonic letter underlined; returns the mnemonic key.
export function renderLabel(element, label) {
    const { text, key, index } = parseMnemonic(label || '');
    element.textContent = '';
    if (index < 0) {
        element.textContent = text;
        return null;
    }
    element.append(text.slice(0, index));
    const underline = document.createElement('u');
    underline.textContent = text[index];
    element.append(underline, text.slice(index + 1));
    return key;
}
