// The file chooser of a `file` prompt: the roots the host lets the page reach, folders walked with
// `list` messages, the names filtered by the prompt's filter, and a name field (a new name in
// write mode). The answer is {root, path} with path relative to the root, or null for Cancel.

import { formatSize } from './format.js';

function globToRegExp(glob) {
    const escaped = glob.replace(/[.+^${}()|[\]\\]/g, '\\$&').replace(/\*/g, '.*').replace(/\?/g, '.');
    return new RegExp(`^${escaped}$`, 'i');
}

// The prompt's filter ("*.keyframe", several split by ; , or blanks); none shows every file.
function filterOf(prompt) {
    const patterns = String(prompt.filter || '').split(/[;,\s]+/).filter(Boolean);
    if (patterns.length === 0 || patterns.includes('*') || patterns.includes('*.*')) return () => true;
    const expressions = patterns.map(globToRegExp);
    return (name) => expressions.some((e) => e.test(name));
}

const join = (folder, name) => (folder ? `${folder}/${name}` : name);
const baseName = (path) => String(path || '').split(/[\\/]/).pop();

export class FileChooser {
    constructor(prompt, { win, text, buttons }, actions) {
        this.prompt = prompt;
        this.actions = actions;
        this.accepts = filterOf(prompt);
        this.root = null;
        this.folder = '';
        win.element.classList.add('file-chooser');
        text.textContent = `${prompt.fileTypeName || 'Files'} (${prompt.filter || '*'})`;

        const bar = document.createElement('div');
        bar.className = 'file-bar';
        this.rootSelect = document.createElement('select');
        this.rootSelect.className = 'file-roots';
        this.rootSelect.setAttribute('aria-label', 'Folder');
        this.rootSelect.addEventListener('change', () => this.go(Number(this.rootSelect.value), ''));
        this.upButton = document.createElement('button');
        this.upButton.type = 'button';
        this.upButton.className = 'file-up';
        this.upButton.textContent = 'Up';
        this.upButton.addEventListener('click', () => this.go(this.root, this.folder.split('/').slice(0, -1).join('/')));
        this.pathText = document.createElement('span');
        this.pathText.className = 'file-path';
        bar.append(this.rootSelect, this.upButton, this.pathText);

        this.list = document.createElement('div');
        this.list.className = 'file-list';
        this.list.setAttribute('role', 'listbox');
        this.list.setAttribute('aria-label', 'Files');
        this.list.tabIndex = 0;

        const nameRow = document.createElement('label');
        nameRow.className = 'file-name-row';
        nameRow.append('File name: ');
        this.name = document.createElement('input');
        this.name.type = 'text';
        this.name.className = 'file-name';
        this.name.spellcheck = false;
        this.name.value = baseName(prompt.defaultFileName);
        this.name.addEventListener('keydown', (event) => {
            if (event.key === 'Enter') {
                event.preventDefault();
                this.accept();
            }
        });
        nameRow.append(this.name);
        text.after(bar, this.list, nameRow);

        for (const [label, act] of [['OK', () => this.accept()], ['Cancel', () => actions.answer(null)]]) {
            const button = document.createElement('button');
            button.type = 'button';
            button.textContent = label;
            button.addEventListener('click', act);
            buttons.append(button);
        }
        win.element.addEventListener('keydown', (event) => {
            if (event.key !== 'Escape') return;
            event.preventDefault();
            event.stopPropagation();
            actions.answer(null);
        });
    }

    setRoots(roots) {
        const shown = [...this.rootSelect.options].map((o) => `${o.value}:${o.text}`).join();
        if (shown !== roots.map((r) => `${r.index}:${r.name}`).join()) {
            this.rootSelect.textContent = '';
            for (const root of roots) this.rootSelect.append(new Option(root.name, String(root.index)));
        }
        if (this.root === null && roots.length) this.go(roots[0].index, '');
    }

    go(root, folder) {
        this.root = root;
        this.folder = folder;
        this.rootSelect.value = String(root);
        this.upButton.disabled = folder === '';
        this.pathText.textContent = `/${folder}`;
        this.list.textContent = '';
        this.list.setAttribute('aria-busy', 'true');
        this.actions.list(root, folder);
    }

    // Only the listing of the folder shown now; a slow answer for one left since is dropped.
    showListing(message) {
        if (message.root !== this.root || (message.path || '') !== this.folder) return;
        this.list.removeAttribute('aria-busy');
        this.list.textContent = '';
        const entries = [...(message.entries || [])]
            .filter((e) => e.dir || this.accepts(e.name))
            .sort((a, b) => (b.dir - a.dir) || a.name.localeCompare(b.name));
        for (const entry of entries) {
            const row = document.createElement('div');
            row.setAttribute('role', 'option');
            row.className = entry.dir ? 'file-entry file-dir' : 'file-entry';
            row.dataset.name = entry.name;
            row.dataset.dir = entry.dir ? 'true' : 'false';
            row.setAttribute('aria-selected', 'false');
            const name = document.createElement('span');
            name.textContent = entry.dir ? `${entry.name}/` : entry.name;
            const size = document.createElement('span');
            size.className = 'file-size';
            size.textContent = entry.dir ? '' : formatSize(Number(entry.size) || 0);
            row.append(name, size);
            row.addEventListener('click', () => this.pick(row, entry));
            row.addEventListener('dblclick', () => (entry.dir ? this.go(this.root, join(this.folder, entry.name)) : this.accept()));
            this.list.append(row);
        }
    }

    pick(row, entry) {
        for (const other of this.list.children) other.setAttribute('aria-selected', other === row ? 'true' : 'false');
        if (!entry.dir) this.name.value = entry.name;
    }

    accept() {
        const name = this.name.value.trim();
        if (!name) {
            const chosen = this.list.querySelector('[aria-selected=true][data-dir=true]');
            if (chosen) this.go(this.root, join(this.folder, chosen.dataset.name));
            return;
        }
        if (this.root === null) return;
        this.actions.answer({ root: this.root, path: join(this.folder, name) });
    }
}
